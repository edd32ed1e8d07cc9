// describe_for_kdenlive LIBRARY FOLDER: writes a description of each effect of the library into the
// folder. Part of the build, not installed.
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "host/error.h"
#include "host/library.h"
#include "kdenlive/effect_description.h"

namespace {

using namespace brushworks;

void writeFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file) throw host::Error("cannot write " + path.string());
}

void describe(const std::string& libraryPath, const std::filesystem::path& folder) {
    const host::Library library = host::Library::load(libraryPath);
    std::filesystem::create_directories(folder);
    for (const host::EffectEntry& entry : library.effects()) {
        writeFile(folder / kdenlive::descriptionFileName(entry.id),
                  kdenlive::effectDescription(library.open(entry.index).info()));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: describe_for_kdenlive LIBRARY FOLDER\n";
        return 2;
    }
    try {
        describe(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::cerr << "describe_for_kdenlive: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
