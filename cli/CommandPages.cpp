#include "CommandPages.h"

#include <ostream>
#include <vector>

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include "Formats.h"

namespace {

using TOption = const CLI::Option*;

std::vector<const CLI::App*> GetCommands(const CLI::App& app)
{
   return app.get_subcommands([](const CLI::App* command) { return !command->get_name().empty(); });
}

const CLI::App* FindCommand(const CLI::App& app, const std::string& name)
{
   for (const CLI::App* command : GetCommands(app))
      if (command->get_name() == name)
         return command;
   return nullptr;
}

/// What the help has behind "Usage: ".
std::string GetUsage(const CLI::App& app)
{
   const std::string label = "Usage: ";
   const std::string help = app.help();
   const std::size_t from = help.find(label) + label.size();
   return help.substr(from, help.find('\n', from) - from);
}

/// Options proper: what stands in its place by position has no name.
std::vector<TOption> GetOptions(const CLI::App& app)
{
   std::vector<TOption> options;
   for (TOption option : app.get_options())
      if (!option->get_positional() && !option->get_lnames().empty())
         options.push_back(option);
   return options;
}

bool TakesValue(TOption option)
{
   return option->get_items_expected_max() > 0;
}

std::string GetShort(TOption option)
{
   return option->get_snames().empty() ? "" : "-" + option->get_snames().front();
}

std::string GetLong(TOption option)
{
   return "--" + option->get_lnames().front();
}

/// The first line of a description without the colon ahead of a list; the list belongs to the
/// manual.
std::string GetSummary(TOption option)
{
   const std::string text = option->get_description();
   const std::string line = text.substr(0, text.find('\n'));
   return line.substr(0, line.find_last_not_of(':') + 1);
}

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
   for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
      text.replace(at, from.size(), to);
   return text;
}

std::string Join(const std::vector<std::string>& words)
{
   std::string text;
   for (const std::string& word : words)
      text += (text.empty() ? "" : " ") + word;
   return text;
}

std::string GetFormatWords()
{
   std::vector<std::string> names;
   for (const TFormat& format : GetFormats())
      names.push_back(format.fName);
   return Join(names);
}

std::string GetOptionWords(const CLI::App& app)
{
   std::vector<std::string> words;
   for (TOption option : GetOptions(app)) {
      if (!GetShort(option).empty())
         words.push_back(GetShort(option));
      words.push_back(GetLong(option));
   }
   return Join(words);
}

std::string GetCommandWords(const CLI::App& app)
{
   std::vector<std::string> words;
   for (const CLI::App* command : GetCommands(app))
      words.push_back(command->get_name());
   return Join(words);
}

/// The options of all commands with a value of this kind, as a pattern of the shell.
std::string GetPattern(const CLI::App& app, const std::string& typeName)
{
   std::string pattern;
   for (const CLI::App* command : GetCommands(app))
      for (TOption option : GetOptions(*command)) {
         if (!TakesValue(option) || option->get_type_name() != typeName)
            continue;
         for (const std::string& name : {GetShort(option), GetLong(option)})
            if (!name.empty() && ("|" + pattern + "|").find("|" + name + "|") == std::string::npos)
               pattern += (pattern.empty() ? "" : "|") + name;
      }
   return pattern;
}

void WriteBash(const CLI::App& app, std::ostream& out)
{
   out << "# bash completion for qsxreport\n\n"
          "_qsxreport() {\n"
          "   local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} options=\n"
          "   if [ \"$COMP_CWORD\" -eq 1 ]; then\n";
   out << fmt::format("      mapfile -t COMPREPLY < <(compgen -W \"{} {}\" -- \"$word\")\n",
                      GetCommandWords(app), GetOptionWords(app));
   out << "      return\n   fi\n   case $before in\n";
   out << fmt::format(
      "      --format) mapfile -t COMPREPLY < <(compgen -W \"{}\" -- \"$word\"); return ;;\n",
      GetFormatWords());
   if (const std::string folders = GetPattern(app, "DIR"); !folders.empty())
      out << fmt::format("      {}) mapfile -t COMPREPLY < <(compgen -d -- \"$word\"); return ;;\n",
                         folders);
   out << "   esac\n   case ${COMP_WORDS[1]} in\n";
   for (const CLI::App* command : GetCommands(app))
      out << fmt::format("      {}) options=\"{}\" ;;\n", command->get_name(),
                         GetOptionWords(*command));
   out << "   esac\n"
          "   if [[ $word == -* ]]; then\n"
          "      mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$word\")\n"
          "   else\n"
          "      mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
          "   fi\n"
          "}\n\n"
          "complete -o filenames -F _qsxreport qsxreport\n";
}

/// A text between single quotes inside the brackets of an option of _arguments.
std::string QuoteForZsh(std::string text)
{
   for (const char* special : {"\\", "[", "]", ":"})
      text = Replaced(text, special, std::string("\\") + special);
   return Replaced(text, "'", "'\\''");
}

std::string GetZshValue(TOption option)
{
   const std::string type = option->get_type_name();
   if (GetLong(option) == "--format")
      return ":format:(" + GetFormatWords() + ")";
   return ":" + type + ":" + (type == "DIR" ? "_directories" : type == "FILE" ? "_files" : "");
}

void WriteZshOptions(const CLI::App& app, std::ostream& out)
{
   for (TOption option : GetOptions(app))
      for (const std::string& name : {GetShort(option), GetLong(option)})
         if (!name.empty())
            out << fmt::format("            '*{}[{}]{}' \\\n", name,
                               QuoteForZsh(GetSummary(option)),
                               TakesValue(option) ? GetZshValue(option) : "");
}

void WriteZsh(const CLI::App& app, std::ostream& out)
{
   out << "#compdef qsxreport\n\n"
          "_qsxreport() {\n"
          "   if (( CURRENT == 2 )); then\n"
          "      local -a commands=(\n";
   for (const CLI::App* command : GetCommands(app))
      out << fmt::format("         '{}:{}'\n", command->get_name(),
                         QuoteForZsh(command->get_description()));
   out << "      )\n"
          "      _describe command commands\n"
          "      return\n"
          "   fi\n"
          "   local command=$words[2]\n"
          "   shift words\n"
          "   (( CURRENT-- ))\n"
          "   case $command in\n";
   for (const CLI::App* command : GetCommands(app)) {
      out << fmt::format("      {})\n         _arguments \\\n", command->get_name());
      WriteZshOptions(*command, out);
      out << "            '*:collection:_files' ;;\n";
   }
   out << "   esac\n"
          "}\n\n"
          "_qsxreport \"$@\"\n";
}

std::string QuoteForFish(const std::string& text)
{
   return "'" + Replaced(Replaced(text, "\\", "\\\\"), "'", "\\'") + "'";
}

void WriteFish(const CLI::App& app, std::ostream& out)
{
   out << "# fish completion for qsxreport\n\n";
   for (const CLI::App* command : GetCommands(app))
      out << fmt::format("complete -c qsxreport -n __fish_use_subcommand -f -a {} -d {}\n",
                         command->get_name(), QuoteForFish(command->get_description()));
   for (const CLI::App* command : GetCommands(app))
      for (TOption option : GetOptions(*command)) {
         out << fmt::format("complete -c qsxreport -n '__fish_seen_subcommand_from {}'",
                            command->get_name());
         if (!GetShort(option).empty())
            out << " -s " << option->get_snames().front();
         out << " -l " << option->get_lnames().front();
         if (TakesValue(option))
            out << " -r";
         if (GetLong(option) == "--format")
            out << " -f -a '" << GetFormatWords() << "'";
         out << " -d " << QuoteForFish(GetSummary(option)) << '\n';
      }
}

/// Underscores and asterisks are marks in the language of the manual.
std::string EscapeForManual(std::string text)
{
   for (const char* mark : {"\\", "_", "*", "#", "[", "]", "<", ">"})
      text = Replaced(text, mark, std::string("\\") + mark);
   return text;
}

void WriteManualOptions(const CLI::App& app, std::ostream& out)
{
   out << "# OPTIONS\n\n";
   for (TOption option : GetOptions(app)) {
      if (!GetShort(option).empty())
         out << '*' << EscapeForManual(GetShort(option)) << "*, ";
      out << '*' << EscapeForManual(GetLong(option)) << '*';
      if (TakesValue(option))
         out << " _" << option->get_type_name() << '_';
      out << "\n\t" << Replaced(EscapeForManual(option->get_description()), "\n", "++\n") << "\n\n";
   }
}

void WriteManualCommands(const CLI::App& app, std::ostream& out)
{
   out << "# COMMANDS\n\n";
   for (const CLI::App* command : GetCommands(app))
      out << fmt::format("*{0}*\n\t{1}. See *qsxreport-{0}*(1).\n\n", command->get_name(),
                         EscapeForManual(command->get_description()));
}

constexpr const char* kManualEnd =
   "# EXIT STATUS\n\n"
   "|[ 0\n:< done\n"
   "|  1\n:  differences were found (_compare --exit-code_)\n"
   "|  2\n:  the command line is wrong\n"
   "|  3\n:  an input cannot be read; the message names file, line and column\n"
   "|  4\n:  the run failed, or the output cannot be written\n"
   "|  5\n:  some of several collections or reports failed\n\n";

}  // namespace

bool WriteCompletion(const CLI::App& app, const std::string& shell, std::ostream& out)
{
   if (shell == "bash")
      WriteBash(app, out);
   else if (shell == "zsh")
      WriteZsh(app, out);
   else if (shell == "fish")
      WriteFish(app, out);
   else
      return false;
   return true;
}

bool WriteManualPage(const CLI::App& app, const std::string& command, const std::string& text,
                     std::ostream& out)
{
   const bool isProgram = command == "qsxreport";
   const CLI::App* described = isProgram ? &app : FindCommand(app, command);
   if (described == nullptr)
      return false;
   const std::string page = isProgram ? command : "qsxreport-" + command;
   out << page << "(1) \"\" \"Qsxreport Manual\"\n\n"
       << "# NAME\n\n"
       << page << " - " << EscapeForManual(described->get_description()) << "\n\n"
       << "# SYNOPSIS\n\n"
       << EscapeForManual(GetUsage(*described)) << "\n\n"
       << text << '\n';
   if (isProgram)
      WriteManualCommands(app, out);
   WriteManualOptions(*described, out);
   out << kManualEnd;
   if (!isProgram)
      out << "# SEE ALSO\n\n*qsxreport*(1)\n";
   return true;
}
