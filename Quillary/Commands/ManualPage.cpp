#include "Quillary/Commands/ManualPage.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <string>

namespace Quillary {

namespace {

/// Text that means itself: hyphens stay what a shell reads, and no line begins a request.
std::string literal(std::string_view text)
{
    std::string result;
    for (const char character : text) {
        if (character == '\\') {
            result += "\\e";
        } else if (character == '-') {
            result += "\\-";
        } else if ((character == '.' || character == '\'') && (result.empty() || result.back() == '\n')) {
            result += "\\&";
            result += character;
        } else {
            result += character;
        }
    }
    return result;
}

/// What the user has to fill in, such as "FILE"; empty for a flag.
std::string valueName(const CLI::Option& option)
{
    if (option.get_items_expected_max() == 0) {
        return {};
    }
    const std::string type = option.get_type_name();
    return type.empty() ? "VALUE" : type.substr(0, type.find_first_of(":{")); // its choices stand in the description
}

std::string entry(const CLI::Option& option)
{
    const bool isPositional = !option.nonpositional();
    std::string names = option.get_name(false, true);
    if (const auto comma = names.find(','); comma != std::string::npos) {
        names.insert(comma + 1, " ");
    }
    std::string heading = isPositional ? fmt::format("\\fI{}\\fR", literal(option.get_name(true)))
                                       : fmt::format("\\fB{}\\fR", literal(names));
    if (const std::string value = valueName(option); !isPositional && !value.empty()) {
        heading += fmt::format(" \\fI{}\\fR", literal(value));
    }
    return fmt::format(".TP\n{}\n{}\n", heading, literal(option.get_description()));
}

std::string options(const CLI::App& app)
{
    std::string result;
    for (const CLI::Option* option : app.get_options()) {
        const bool isHelp = option == app.get_help_ptr() && app.get_parent() != nullptr; // said once is enough
        if (!option->get_group().empty() && !isHelp) {
            result += entry(*option);
        }
    }
    return result;
}

std::string command(const CLI::App& app, const std::string& above)
{
    const std::string name = above + " " + app.get_name();
    std::string result = fmt::format(".SS \"{}\"\n{}\n{}", literal(name), literal(app.get_description()), options(app));
    for (const CLI::App* each : app.get_subcommands([](const CLI::App*) { return true; })) {
        result += command(*each, name);
    }
    return result;
}

constexpr std::string_view ending = R"(.SH EXIT STATUS
0: done. 1: it was not, and one sentence on standard error says why. 2: the command line can't be understood.
.SH FILES
.TP
\fI$XDG_DATA_HOME/quillary\fR (usually \fI~/.local/share/quillary\fR)
The library, and its backups in the folder \fIBackups\fR.
.TP
\fI$XDG_CONFIG_HOME/quillary\fR (usually \fI~/.config/quillary\fR)
What assistants may do.
.TP
\fI$XDG_STATE_HOME/quillary\fR (usually \fI~/.local/state/quillary\fR)
What assistants did.
.SH ENVIRONMENT
.TP
\fBQUILLARY_ASSISTANT_SOCKET\fR
The path of the socket on which assistants are served, in the place of the usual one.
.TP
\fBQT_QPA_PLATFORM\fR
Where windows and pages are drawn; \fBoffscreen\fR needs no screen.
.SH SEE ALSO
.BR quillary\-mcp (1)
)";

} // namespace

std::string manualPage(const CLI::App& app, std::string_view version)
{
    std::string page = fmt::format(".TH QUILLARY 1 \"\" \"Quillary {}\" \"User Commands\"\n", literal(version));
    page += ".SH NAME\nquillary \\- invoices, quotes and credit notes for a small business\n"
            ".SH SYNOPSIS\n.B quillary\n[\\fIOPTIONS\\fR] [\\fICOMMAND\\fR [\\fIARGUMENTS\\fR]]\n.SH DESCRIPTION\n";
    page += literal(app.get_description()) +
            "\nWithout a command it opens its window; without a screen it lists what it can do. Scripts use the "
            "commands below.\n.SH OPTIONS\n";
    page += options(app) + ".SH COMMANDS\n";
    for (const CLI::App* each : app.get_subcommands([](const CLI::App*) { return true; })) {
        page += command(*each, "quillary");
    }
    return page += ending;
}

} // namespace Quillary
