// Prints the table; what no table knows stands here as text.
#include "manual.h"

#include <string_view>

#include "command_table.h"

namespace brushworks::tools {
namespace {

constexpr std::string_view kDescription = R"(.SH DESCRIPTION
.B brushworks
paints pictures and videos with the effects of the Brushworks library.
A video keeps its sound, its times and what else the type of the output has room for; its frames
render on all cores.
As many run as fit into half of the memory that is free; a frame that does not fit is refused, and
.B \-\-memory
allows more or less.
An output appears only when it is whole, and an existing one is only replaced with
.BR \-\-force ;
a file that is read is never written.
Results go to standard output, everything else that is said to standard error; control characters in
names and values are shown by their codes, such as \\x1b.
)";

constexpr std::string_view kValues = R"(.SH VALUES
An effect is named by its id, its display name or its index; letter case does not count in any name.
A name that does not exist is answered with the nearest one.
.B brushworks info
.I EFFECT
tells an effect's parameters, what they take, and its presets. Values are written as an editor's
panel shows them:
.TP
slider
a number in display units, such as
.B size=40
.TP
list
the name of an option, such as
.B \(dqdither=Option A\(dq
.TP
check box
.B on
or
.B off
.TP
colour
.BI # rrggbb
.TP
point
.IB x , y\fR;
the picture is 1 wide and 1 high
)";

constexpr std::string_view kEnd = R"(.SH PROGRESS
With
.B \-\-progress=kv
blocks of lines go to standard error, a first one at once and the last one when the output is whole:
.BI frame= N
(of a gallery
.BR picture= )
and
.BI total= N
count,
.BI fps= X
(of a gallery
.BR pictures_per_s= )
is the rate so far,
.BI eta_s= X
the time left in seconds;
.B N/A
stands for what is not known.
A block ends in
.BR progress=continue ,
the last one in
.BR progress=end ,
which does not come after a failure.
Notes and messages start with
.BR brushworks: .
.SH COMPLETION
Commands, options, effects, presets, parameters and values complete in bash and zsh; without an
installation after
.PP
.EX
source <(brushworks completion bash)
.EE
.SH EXIT STATUS
.TP
.B 0
The work is done.
.TP
.B 1
It failed: a file cannot be read or written, is damaged or cut short, or would be input and output.
There is no output then.
.TP
.B 2
The command line is wrong; the message names what would be right.
.SH ENVIRONMENT
.TP
.B BRUSHWORKS_LIBRARY
Path of the effect library, in place of the one that the system finds.
.TP
.B BRUSHWORKS_VARIANT
Caps the instruction set:
.BR mx ", " m7 ", " u8 ", " y8 ", " avx2 " or " avx512 .
The pictures are the same with all.
.SH EXAMPLES
.EX
brushworks paint in.png \-e posterize \-o out.png
brushworks paint in.mp4 \-e oil \-\-preview \-\-before\-after \-o look.mp4
brushworks paint in.mp4 \-e oil \-o out.mp4 \-\-dry\-run
brushworks paint in.mp4 \-e oil \-p Dark \-s \(dqBrush Size=30\(dq \-o out.mp4
brushworks paint in.jpg \-e mural \-\-scale fit:1920:1080 \-o out.jpg
brushworks gallery in.jpg \-o gallery
.EE
)";

/// A text as roff shows it, letter for letter.
std::string roff(std::string_view text) {
    std::string escaped;
    bool lineStart = true;
    for (const char c : text) {
        // In front of a line these would start a macro.
        if (lineStart && (c == '.' || c == '\'')) escaped += "\\&";
        lineStart = c == '\n';
        if (c == '\\') {
            escaped += "\\e";
        } else if (c == '-') {
            escaped += "\\-";
        } else if (c == '"') {
            escaped += "\\(dq";
        } else if (c == '\'') {
            escaped += "\\(aq";
        } else if (c == '~') {
            escaped += "\\(ti";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string bold(std::string_view text) {
    return "\\fB" + roff(text) + "\\fR";
}

std::string italic(std::string_view text) {
    return "\\fI" + roff(text) + "\\fR";
}

/// The option with all its names and its value, such as "-o, --output FILE".
std::string heading(const CLI::Option& option) {
    if (option.get_positional()) return italic(valueKind(option));
    std::string names;
    for (const std::string& name : option.get_snames()) names += bold("-" + name) + ", ";
    for (const std::string& name : option.get_lnames()) names += bold("--" + name) + ", ";
    names.resize(names.size() - 2);
    const std::string kind = valueKind(option);
    if (kind.empty()) return names;
    const std::string value = choices(option).empty() ? italic(kind) : bold(kind);
    return takesWord(option) ? names + " " + value : names + "[=" + value + "]";
}

/// Help is the same everywhere, and told once.
bool isHelp(const CLI::App& command, const CLI::Option* option) {
    return option == command.get_help_ptr() || option == command.get_help_all_ptr();
}

std::string fullName(const CLI::App& command) {
    const CLI::App* parent = command.get_parent();
    return (parent != nullptr ? fullName(*parent) + " " : "") + command.get_name();
}

/// The commands that do something: those below which there are no others.
std::vector<const CLI::App*> lastCommands(const CLI::App& app) {
    const std::vector<const CLI::App*> below = shownCommands(app);
    if (below.empty()) return {&app};
    std::vector<const CLI::App*> all;
    for (const CLI::App* command : below) {
        const std::vector<const CLI::App*> last = lastCommands(*command);
        all.insert(all.end(), last.begin(), last.end());
    }
    return all;
}

/// How the command is called: what it needs, and whether there is more.
std::string usage(const CLI::App& command) {
    std::string line = bold(fullName(command));
    bool more = false;
    for (const CLI::Option* operand : operands(command)) {
        line += " " + italic(valueKind(*operand));
        if (operand->get_expected_max() > 1) line += "...";
    }
    for (const CLI::Option* option : namedOptions(command)) {
        if (option->get_required()) {
            line += " " + bold(longName(*option)) + " " + italic(valueKind(*option));
        } else if (!isHelp(command, option)) {
            more = true;
        }
    }
    return more ? line + " [" + italic("option") + "]..." : line;
}

void writeOption(const CLI::Option& option, std::ostream& out) {
    out << ".TP\n" << heading(option) << '\n' << roff(option.get_description());
    if (!option.get_default_str().empty() && takesWord(option)) {
        out << " (default: " << roff(option.get_default_str()) << ')';
    }
    out << ".\n";
}

void writeCommand(const CLI::App& command, std::ostream& out) {
    out << ".SS " << usage(command) << '\n' << roff(command.get_description()) << ".\n";
    for (const CLI::Option* operand : operands(command)) writeOption(*operand, out);
    for (const CLI::Option* option : namedOptions(command)) {
        if (!isHelp(command, option)) writeOption(*option, out);
    }
}

}  // namespace

void writeManual(const CLI::App& app, const host::Library& library, std::ostream& out) {
    const std::vector<const CLI::App*> commands = lastCommands(app);
    out << ".TH BRUSHWORKS 1 \"\" \"Brushworks " << app.version() << "\" \"User Commands\"\n"
        << ".SH NAME\nbrushworks \\- " << roff(app.get_description()) << '\n'
        << ".SH SYNOPSIS\n.nf\n";
    for (const CLI::App* command : commands) out << usage(*command) << '\n';
    out << ".fi\n" << kDescription << ".SH COMMANDS\n";
    for (const CLI::App* command : commands) writeCommand(*command, out);
    out << ".PP\nEvery command has\n.BR \\-\\-help .\n" << kValues << ".SH EFFECTS\n";
    for (const host::EffectEntry& effect : library.effects()) {
        out << ".TP 18\n" << bold(effect.id) << '\n' << roff(effect.name) << '\n';
    }
    out << kEnd;
}

}  // namespace brushworks::tools
