// Panels by a program that shows one dialog and writes the answer: zenity or kdialog.
#pragma once

#include <vector>

#include "panels/panel_way.h"

namespace brushworks {

using Arguments = std::vector<std::string>;

/// How a program is asked: with every nicety, or with what all its versions understand.
enum class Manner { kFull, kPlain };

/// What a program is called, and its arguments.
struct DialogWords {
    const char* program;
    Arguments (*choose)(WindowId parent, Purpose purpose, const FileRequest& request,
                        Manner manner);
    Arguments (*alert)(WindowId parent, const AlertTexts& texts, Manner manner);
};

/// Lately without --confirm-overwrite, since it always asks, and without --attach.
const DialogWords& ZenityWords();
/// Has no choice of the button's text: its own is OK, in the user's language.
const DialogWords& KDialogWords();

/// `entries` (NAME=VALUE) changed so that a dialog program takes its arguments and writes its
/// answer in UTF-8, whatever the locale: in others zenity refuses to start and kdialog loses
/// characters.
std::vector<std::string> InUTF8(std::vector<std::string> entries);

class DialogProgram final : public IPanelWay {
  public:
    explicit DialogProgram(const DialogWords& words) : m_words(words) {}
    Attempt Choose(WindowId parent, Purpose purpose, const FileRequest& request) override;
    bool Alert(WindowId parent, const AlertTexts& texts) override;

  private:
    const DialogWords& m_words;
};

}  // namespace brushworks
