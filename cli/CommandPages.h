#pragma once

#include <iosfwd>
#include <string>

namespace CLI {
class App;
}

// What a package ships about the command line, made from the command line's own definition, so that
// neither can tell another story than --help.

/// A completion script for "bash", "zsh" or "fish". Missing: false for another shell, and nothing
/// is written.
bool WriteCompletion(const CLI::App& app, const std::string& shell, std::ostream& out);

/// The manual page of a command, or of the program for "qsxreport", in the language of scdoc. The
/// text stands between synopsis and options. Missing: false for a command that there is not.
bool WriteManualPage(const CLI::App& app, const std::string& command, const std::string& text,
                     std::ostream& out);
