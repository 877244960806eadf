#include "html/RowFiles.h"

#include <cerrno>

#include <sys/stat.h>

#include <fmt/format.h>

#include "common/SafeText.h"

namespace {

constexpr TPlainBytes kPlain("\"\\\n");

std::string_view GetEscape(char c)
{
   switch (c) {
      case '"':
         return "\\\"";
      case '\\':
         return "\\\\";
      case '\n':
         return "\\n";
      default:
         return {};
   }
}

// Before the text of a cell, in any order.
constexpr const char* kMonospaced = "\x05";
constexpr const char* kResultFile = "\x06";
constexpr const char* kScore = "\x07";
constexpr const char* kFrequencies = "\x08";
constexpr const char* kHeader = "\x0E";
constexpr const char* kSame = "\x0F";
constexpr const char* kChanged = "\x10";
// Before the second text.
constexpr const char* kSecond = "\x1D";
constexpr const char* kRowEnd = "\x1E";
constexpr const char* kCellEnd = "\x1F";

std::string_view GetMark(EState state)
{
   switch (state) {
      case EState::kNone:
         break;
      case EState::kOk:
         return "\x01";
      case EState::kUnknown:
         return "\x02";
      case EState::kAttention:
         return "\x03";
      case EState::kFailed:
         return "\x04";
   }
   return {};
}

std::string_view GetMark(ECellKind kind)
{
   switch (kind) {
      case ECellKind::kText:
         break;
      case ECellKind::kResultFile:
         return kResultFile;
      case ECellKind::kScore:
         return kScore;
      case ECellKind::kFrequencies:
         return kFrequencies;
   }
   return {};
}

}  // namespace

void WriteScriptText(TOutputFile& file, std::string_view text)
{
   WriteSafeText(file, text, kPlain, GetEscape);
}

TRowFiles::TRowFiles(const std::string& outputDirectory) : fFolder(outputDirectory + "/" + kFolder)
{
   constexpr mode_t kForAll = 0777;
   if (mkdir(fFolder.c_str(), kForAll) != 0 && errno != EEXIST)
      throw TOutputError(errno, fFolder);
}

void TRowFiles::BeginTable(std::size_t page, unsigned table)
{
   fPage = page;
   fTable = table;
   fRow = 0;
}

void TRowFiles::AddCell(const TCell& cell, TPlace place)
{
   if (!fIsTextOpen)
      OpenText();
   if (fIsRowOpen)
      Write(kCellEnd);
   fIsRowOpen = true;
   if (cell.fSame)
      return Write(kSame);
   if (place.fIsHeader)
      Write(kHeader);
   if (place.fIsChanged)
      Write(kChanged);
   if (cell.fMonospaced)
      Write(kMonospaced);
   Write(GetMark(cell.fState));
   Write(GetMark(cell.fKind));
   WriteText(cell.fText);
   if (cell.fSecondText.empty())
      return;
   Write(kSecond);
   WriteText(cell.fSecondText);
}

void TRowFiles::EndRow()
{
   if (!fIsTextOpen)
      OpenText();
   Write(kRowEnd);
   fIsRowOpen = false;
   ++fRow;
   if (fFile->GetSize() >= kBytesPerFile)
      Close();
}

void TRowFiles::EndTable(std::size_t file, const std::string& name,
                         const std::vector<std::string>& labels)
{
   CloseText();
   TOutputFile& out = GetFile();
   out.Write(fmt::format("qsxTable({},{},{},{},\"", fPage, fTable, file, fRow));
   WriteText(name);
   out.Write("\",[");
   bool isFirst = true;
   for (const std::string& label : labels) {
      out.Write(isFirst ? "\"" : ",\"");
      WriteText(label);
      out.Write("\"");
      isFirst = false;
   }
   out.Write("]);\n");
}

/// The next row begins a file.
void TRowFiles::Close()
{
   CloseText();
   if (fFile)
      fFile->Close();
   fFile.reset();
}

void TRowFiles::OpenText()
{
   GetFile().Write(fmt::format("qsxRows({},{},{},\"", fPage, fTable, fRow + 1));
   fIsTextOpen = true;
}

void TRowFiles::CloseText()
{
   if (fIsTextOpen)
      Write("\");\n");
   fIsTextOpen = false;
}

TOutputFile& TRowFiles::GetFile()
{
   if (!fFile)
      fFile.emplace(fmt::format("{}/{}.js", fFolder, ++fFileNumber));
   return *fFile;
}

void TRowFiles::WriteText(std::string_view text)
{
   WriteScriptText(*fFile, text);
}
