// The words that dialog programs are given.
#include "panels/dialog_program.h"

#include <gmock/gmock.h>

namespace brushworks {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;
using ::testing::UnorderedElementsAre;

const FileRequest kSaved = {"/home/a b", "fxpbwkk", "-My Preset.fxpbwkk"};
const FileRequest kOpened = {"/home/a b", "fxpbwkk", ""};
const AlertTexts kTexts = {"-Title", "A <b> & \\n \"c\"\nd", "--OK"};

TEST(Zenity, IsAskedInFullOrPlainly) {
    const auto choose = ZenityWords().choose;
    EXPECT_THAT(choose(0x1C00007, Purpose::kSave, kSaved, Manner::kFull),
                ElementsAre("--modal", "--attach=29360135", "--file-selection", "--title=Save As",
                            "--save", "--confirm-overwrite",
                            "--filename=/home/a b/-My Preset.fxpbwkk", "--file-filter=*.fxpbwkk"));
    EXPECT_THAT(choose(0x1C00007, Purpose::kSave, kSaved, Manner::kPlain),
                ElementsAre("--file-selection", "--title=Save As", "--save",
                            "--filename=/home/a b/-My Preset.fxpbwkk", "--file-filter=*.fxpbwkk"));
    EXPECT_THAT(choose(0, Purpose::kOpen, kOpened, Manner::kFull),
                ElementsAre("--file-selection", "--title=Open", "--filename=/home/a b/",
                            "--file-filter=*.fxpbwkk"));
    EXPECT_THAT(choose(0, Purpose::kOpen, {"/", "x", ""}, Manner::kFull), Contains("--filename=/"));
}

TEST(Zenity, ReadsNoMarkupInAlerts) {
    EXPECT_THAT(ZenityWords().alert(9, kTexts, Manner::kFull),
                ElementsAre("--modal", "--attach=9", "--error", "--no-markup", "--title=-Title",
                            "--text=A <b> & \\n \"c\"\nd", "--ok-label=--OK"));
}

TEST(KDialog, TakesPathsForPathsAndEscapesForTexts) {
    const auto choose = KDialogWords().choose;
    EXPECT_THAT(choose(9, Purpose::kSave, kSaved, Manner::kFull),
                ElementsAre("--attach=9", "--getsavefilename", "--", "/home/a b/-My Preset.fxpbwkk",
                            "*.fxpbwkk"));
    EXPECT_THAT(choose(0, Purpose::kOpen, kOpened, Manner::kFull),
                ElementsAre("--getopenfilename", "--", "/home/a b/", "*.fxpbwkk"));
    EXPECT_THAT(choose(0, Purpose::kSave, {"", "x", "-a.x"}, Manner::kFull), Contains("./-a.x"));
    EXPECT_THAT(KDialogWords().alert(0, kTexts, Manner::kFull),
                ElementsAre("--title=-Title", "--error=A <b> & \\\\n \"c\"\nd"));
}

TEST(InUTF8, KeepsALocaleThatIsInUTF8) {
    EXPECT_THAT(InUTF8({"LANG=de_DE.UTF-8", "A=b"}),
                UnorderedElementsAre("LANG=de_DE.UTF-8", "A=b", "CHARSET=UTF-8"));
    EXPECT_THAT(InUTF8({"LC_ALL=C", "LC_CTYPE=fr_FR.utf8", "CHARSET=x", "LC_ALLY=1"}),
                UnorderedElementsAre("LC_ALL=C.UTF-8", "LC_CTYPE=fr_FR.utf8", "CHARSET=UTF-8",
                                     "LC_ALLY=1"));
    EXPECT_THAT(InUTF8({"LC_ALL=", "LC_CTYPE=fr_FR.utf8", "LANG=C"}),
                Not(Contains("LC_ALL=C.UTF-8")));
    EXPECT_THAT(InUTF8({}), UnorderedElementsAre("LC_ALL=C.UTF-8", "CHARSET=UTF-8"));
}

}  // namespace
}  // namespace brushworks
