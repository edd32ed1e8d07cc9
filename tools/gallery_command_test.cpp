// `gallery` with the real effects, and with some that misbehave.
#include <gmock/gmock.h>
#include <signal.h>

#include <algorithm>
#include <filesystem>
#include <thread>

#include "host/library.h"
#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using testing::CommandTest;
using testing::Content;
using testing::contentOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::Result;

using Names = std::set<std::string>;

class Gallery : public CommandTest {
  protected:
    Result gallery(const std::string& input, std::vector<std::string> more,
                   const std::string& library = "") {
        more.insert(more.begin(), {"gallery", input, "-o", "out"});
        return run(more, library);
    }
    std::string page() const { return testing::readFile(path("out/index.html")); }
    Names namesIn(const std::string& folder) const {
        Names names;
        for (const fs::directory_entry& entry : fs::directory_iterator(path(folder))) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
};

/// The values of an attribute, in the order in which they stand on the page.
std::vector<std::string> attributes(const std::string& html, const std::string& name) {
    const std::string start = " " + name + "=\"";
    std::vector<std::string> values;
    for (std::size_t at = html.find(start); at != std::string::npos; at = html.find(start, at)) {
        at += start.size();
        values.push_back(html.substr(at, html.find('"', at) - at));
    }
    return values;
}

int countOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST_F(Gallery, ShowsEveryPresetOfEveryEffectThatRenders) {
    testing::makeColors(path("in.png"), 64, 40);
    const Result result = gallery("in.png", {"--jobs", "3"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, IsEmpty());
    const std::string html = page();
    Names pictures;
    for (const std::string& source : attributes(html, "src")) pictures.insert(source);

    const host::Library library = host::Library::load();
    std::size_t expected = 1;  // the original
    for (const host::EffectEntry& entry : library.effects()) {
        const bool leftOut = result.err.find(entry.id) != std::string::npos;
        EXPECT_EQ(html.find("id=\"effect-" + entry.id + "\"") == std::string::npos, leftOut);
        if (leftOut) continue;
        const host::Effect effect = library.open(entry.index);
        expected += 1 + effect.info().presets.size();
        for (const host::Preset& preset : effect.info().presets) {
            EXPECT_THAT(html, HasSubstr("data-name=\"" + preset.name + "\" data-effect=\"" +
                                        entry.name + "\""));
        }
    }
    EXPECT_THAT(html, HasSubstr("id=\"effect-posterize\""));
    EXPECT_EQ(pictures.size(), expected);
    Names files = pictures;
    files.insert({"index.html", ".brushworks-gallery"});
    EXPECT_EQ(namesIn("out"), files);
    EXPECT_EQ(this->files(), (Names{"in.png", "out"}));
    for (const std::string& picture : pictures) {
        const Content content = contentOf(path("out/" + picture));
        EXPECT_EQ(content.width, 64) << picture;
        EXPECT_EQ(content.height, 40) << picture;
    }
}

TEST_F(Gallery, PaintsWhatItsCommandsPaint) {
    testing::makePicture(path("in.webp"), 48, 32, true);
    ASSERT_EQ(gallery("in.webp", {"-e", "posterize"}).status, 0);
    EXPECT_THAT(page(), HasSubstr("<span>brushworks paint</span> <span>in.webp</span> "
                                  "<span>-e posterize</span> "
                                  "<span>-p &quot;Offset Printing&quot;</span> "
                                  "<span>-o posterize-offset-printing.webp</span>"));
    ASSERT_EQ(paint("in.webp", "painted.webp", {"-p", "Offset Printing"}).status, 0);
    const Content painted = contentOf(path("out/posterize-offset-printing.png"));
    EXPECT_EQ(painted.first, contentOf(path("painted.webp")).first);
    EXPECT_EQ(contentOf(path("out/original.png")).first, contentOf(path("in.webp")).first);
}

TEST_F(Gallery, NeedsNothingFromOutsideItsFolder) {
    testing::makeColors(path("in.png"), 40, 40);
    ASSERT_EQ(gallery("in.png", {"-e", "posterize"}).status, 0);
    const std::string html = page();
    EXPECT_THAT(html, AllOf(Not(HasSubstr("http:")), Not(HasSubstr("https:")),
                            Not(HasSubstr("@import")), Not(HasSubstr("{{"))));
    for (const char* name : {"src", "href"}) {
        for (const std::string& link : attributes(html, name)) {
            const bool here = link == "data:," || link.starts_with('#') ||
                              fs::is_regular_file(path("out/" + link));
            EXPECT_TRUE(here) << link;
        }
    }
}

TEST_F(Gallery, TellsValuesAsAPanelDoes) {
    testing::makeColors(path("in.png"), 40, 40);
    ASSERT_EQ(gallery("in.png", {"-e", "posterize"}).status, 0);
    host::Effect effect = host::Library::load().open("posterize");
    effect.applyPreset("6 Colors");
    ASSERT_EQ(effect.text("Color Shift"), "-5.999994");
    EXPECT_THAT(page(), AllOf(HasSubstr("<dd class=\"changed\">-6</dd>"), Not(HasSubstr("5.99"))));
}

TEST_F(Gallery, ReducesWidePicturesAndEnlargesNone) {
    testing::makeColors(path("wide.png"), 300, 101);
    ASSERT_EQ(gallery("wide.png", {"-e", "posterize", "--width", "100"}).status, 0);
    EXPECT_THAT(page(), AllOf(HasSubstr("width=\"100\" height=\"34\""),
                              HasSubstr("300 × 101; here 100 × 34")));
    EXPECT_EQ(contentOf(path("out/posterize-dots.jpg")).width, 100);
    EXPECT_EQ(contentOf(path("out/posterize-dots.jpg")).height, 34);

    // Pixels that are not square, and a video of them.
    testing::makeClip(path("clip.mkv"), {.width = 80, .height = 48, .pixelAspect = {2, 1}});
    ASSERT_EQ(gallery("clip.mkv", {"-e", "posterize", "-f"}).status, 0);
    EXPECT_THAT(page(), AllOf(HasSubstr("the first frame, 80 × 48; here 80 × 24"),
                              HasSubstr("-o posterize-dots.mkv<")));
    EXPECT_EQ(contentOf(path("out/original.jpg")).height, 24);
}

TEST_F(Gallery, QuotesWhateverNamesHold) {
    testing::makeColors(path("<img> & 'co'.png"), 30, 20);
    const Result result = gallery("<img> & 'co'.png", {"-e", "stubborn-brush", "-e", "1"},
                                  BRUSHWORKS_TESTING_LIBRARY);
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.err, HasSubstr("left out, since they cannot render: stubborn-brush"));
    const std::string html = page();
    EXPECT_THAT(html, AllOf(Not(HasSubstr("<b>")), Not(HasSubstr("<i>")), Not(HasSubstr("<img>"))));
    EXPECT_THAT(html, HasSubstr("<h1>&lt;img&gt; &amp; &#39;co&#39;.png</h1>"));
    EXPECT_THAT(html, HasSubstr("<h2 id=\"name-odd-&lt;i&gt;&amp;&lt;/i&gt;-brush\">Odd &lt;i"));
    EXPECT_THAT(html, HasSubstr("<h3>&quot;Quoted&quot; &amp; &lt;b&gt;bold&lt;/b&gt;</h3>"));
    // For the shell, then for HTML.
    EXPECT_THAT(html, HasSubstr("-p &#39;&quot;Quoted&quot; &amp; &lt;b&gt;bold&lt;/b&gt;&#39;"));
    EXPECT_THAT(html, HasSubstr("-p &#39;It&#39;\\&#39;&#39;s $HOME&#39;"));
    // Values of a preset that differ from the defaults, and names that would be one file.
    EXPECT_EQ(countOf(html, "<dd class=\"changed\">0.75,0.5</dd>"), 3);
    EXPECT_EQ(countOf(html, "<dd class=\"same\">Copy</dd>"), 4);
    const Names names = namesIn("out");
    EXPECT_EQ(names.count("odd-i-i-brush-it-s-home.jpg"), 1U);
    EXPECT_EQ(names.count("odd-i-i-brush-it-s-home-2.jpg"), 1U);
}

TEST_F(Gallery, ReplacesNothingButItsOwn) {
    testing::makeColors(path("in.png"), 40, 30);
    const std::vector<std::string> some = {"-e", "posterize"};
    const std::vector<std::string> forced = {"-e", "water-color", "--force"};
    fs::create_directory(path("real"));
    fs::create_directory_symlink("real", path("out"));
    ASSERT_EQ(gallery("in.png", some).status, 0);  // an empty folder, through a link
    EXPECT_TRUE(fs::is_symlink(path("out")));
    EXPECT_TRUE(fs::exists(path("real/posterize-dots.jpg")));

    const Result refused = gallery("in.png", some);
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("out holds a gallery; --force replaces it"));
    ASSERT_EQ(gallery("in.png", forced).status, 0);
    EXPECT_FALSE(fs::exists(path("out/posterize-dots.jpg")));
    EXPECT_TRUE(fs::exists(path("out/water-color-burnt.jpg")));

    testing::writeFile(path("out/mine.txt"), "precious");
    const Names before = namesIn("out");
    const Result foreign = gallery("in.png", forced);
    EXPECT_EQ(foreign.status, 1);
    EXPECT_THAT(foreign.err, HasSubstr("out holds other files, such as mine.txt"));
    EXPECT_EQ(namesIn("out"), before);

    // A list that names a folder does not make it ours.
    fs::remove(path("out/mine.txt"));
    fs::create_directory(path("out/mine"));
    testing::writeFile(path("out/.brushworks-gallery"),
                       testing::readFile(path("out/.brushworks-gallery")) + "mine\n");
    EXPECT_EQ(gallery("in.png", forced).status, 1);

    EXPECT_THAT(run({"gallery", "in.png", "-o", "."}).err, HasSubstr("is the current folder"));
    EXPECT_THAT(run({"gallery", "in.png", "-o", "in.png"}).err, HasSubstr("is not a folder"));
    EXPECT_EQ(run({"gallery", "in.png", "-o", "new/", "-e", "posterize"}).status, 0);
    EXPECT_EQ(files(), (Names{"in.png", "out", "real", "new"}));
}

TEST_F(Gallery, LeavesNothingBehindWhenItFails) {
    testing::makeColors(path("in.png"), 40, 30);
    testing::writeFile(path("text.png"), "not a picture at all");
    const auto expectFailure = [&](const Result& result, int status, const char* message) {
        EXPECT_EQ(result.status, status);
        EXPECT_THAT(result.err, HasSubstr(message));
        EXPECT_EQ(files(), (Names{"in.png", "text.png"}));
    };
    expectFailure(gallery("text.png", {}), 1, "cannot read text.png");
    expectFailure(gallery("in.png", {"-e", "postrize"}), 2, "did you mean \"posterize\"?");
    expectFailure(gallery("in.png", {"--width", "0"}), 2, "--width");
    expectFailure(gallery("in.png", {"-e", "odd-<i>&</i>-brush", "-e", "fickle-brush"},
                          BRUSHWORKS_TESTING_LIBRARY),
                  1, "the effect fickle-brush could not render \"Never\"");
    expectFailure(gallery("in.png", {"-e", "0"}, BRUSHWORKS_TESTING_LIBRARY), 1,
                  "in.png cannot be rendered by stubborn-brush");
    expectFailure(run({"gallery", "in.png", "-o", "missing/out"}), 1, "cannot write missing/out");
}

TEST_F(Gallery, LeavesNothingBehindWhenInterrupted) {
    testing::makeColors(path("in.png"), 40, 30);
    for (const int signalNumber : {SIGINT, SIGTERM}) {
        const pid_t process =
            start({"gallery", "in.png", "-o", "out", "-e", "1", "-e", "sleepy-brush"},
                  BRUSHWORKS_TESTING_LIBRARY);
        // The original and the pictures of the first effect.
        const auto painted = [&] {
            const Names names = files();
            const auto folder = std::find_if(names.begin(), names.end(), [](const auto& name) {
                return name.starts_with(".brushworks-");
            });
            return folder != names.end() && namesIn(*folder).size() == 5;
        };
        for (int i = 0; i < 1000 && !painted(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_TRUE(painted());
        kill(process, signalNumber);
        EXPECT_EQ(wait(process).signal, signalNumber);
        EXPECT_EQ(files(), Names{"in.png"});
    }
}

}  // namespace
}  // namespace brushworks::tools
