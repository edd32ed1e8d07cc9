// What the shared file shows and needs: two functions out, and no OpenGL in.
#include <elf.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

/// The dynamic section of a 64-bit ELF file.
class SharedFile {
  public:
    explicit SharedFile(const char* path) {
        std::ifstream file(path, std::ios::binary);
        m_bytes.assign(std::istreambuf_iterator<char>(file), {});
    }

    /// Names that the file defines for others, but for its own version node.
    std::set<std::string> Exports() const {
        std::set<std::string> names;
        ForEach<Elf64_Sym>(SHT_DYNSYM, [&](const Elf64_Sym& symbol, const char* strings) {
            if (symbol.st_shndx != SHN_UNDEF && symbol.st_shndx != SHN_ABS)
                names.insert(strings + symbol.st_name);
        });
        return names;
    }

    /// Files that the loader must find before this one runs.
    std::set<std::string> Needs() const {
        std::set<std::string> names;
        ForEach<Elf64_Dyn>(SHT_DYNAMIC, [&](const Elf64_Dyn& entry, const char* strings) {
            if (entry.d_tag == DT_NEEDED) names.insert(strings + entry.d_un.d_val);
        });
        return names;
    }

  private:
    template <class Record>
    const Record& At(std::size_t offset) const {
        return *reinterpret_cast<const Record*>(m_bytes.data() + offset);
    }

    /// Walks the records of the first section of a type, with the string section it refers to.
    template <class Record, class Visit>
    void ForEach(unsigned type, Visit visit) const {
        const auto& header = At<Elf64_Ehdr>(0);
        auto section = [&](unsigned i) -> const Elf64_Shdr& {
            return At<Elf64_Shdr>(header.e_shoff + i * sizeof(Elf64_Shdr));
        };
        for (unsigned i = 0; i < header.e_shnum; ++i) {
            if (section(i).sh_type != type) continue;
            const char* strings = m_bytes.data() + section(section(i).sh_link).sh_offset;
            for (std::size_t at = 0; at < section(i).sh_size; at += sizeof(Record))
                visit(At<Record>(section(i).sh_offset + at), strings);
        }
    }

    std::vector<char> m_bytes;
};

TEST(Symbols, ExactlyTwoFunctionsLeaveTheLibrary) {
    const SharedFile library(BRUSHWORKS_LIBRARY_FILE);
    EXPECT_EQ(library.Exports(), (std::set<std::string>{"CanUnloadDLLNow", "GetEffectsLibrary"}));
}

TEST(Symbols, OpenGLIsNotNeededToLoad) {
    using ::testing::HasSubstr;
    using ::testing::Not;
    const SharedFile library(BRUSHWORKS_LIBRARY_FILE);
    EXPECT_THAT(library.Needs(), ::testing::Contains(HasSubstr("libc.so")));
    EXPECT_THAT(library.Needs(), ::testing::Each(Not(HasSubstr("GL"))));
}

}  // namespace
