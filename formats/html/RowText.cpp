#include "html/RowText.h"

#include "common/SafeText.h"

namespace {

constexpr TPlainBytes kPlain("\t\n");
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view GetEscape(char c)
{
   switch (c) {
      case '\t':
         return " ";
      case '\n':
         return "\xE2\x86\xB5";
      default:
         return {};
   }
}

}  // namespace

TRowText::TRowText(const std::vector<std::string>& labels)
{
   for (const std::string& label : labels) {
      TCell cell;
      cell.fText = label;
      AddCell(cell);
   }
   if (!labels.empty())
      EndRow();
}

void TRowText::AddCell(const TCell& cell)
{
   if (fIsRowOpen)
      Write("\t");
   fIsRowOpen = true;
   WriteText(cell.fSame ? "same" : cell.fText);
   if (cell.fSecondText.empty())
      return;
   Write(" [");
   WriteText(cell.fSecondText);
   Write("]");
}

void TRowText::EndRow()
{
   Write("\n");
   fIsRowOpen = false;
}

void TRowText::Open(const std::string& path)
{
   fFile.emplace(path);
   fFile->Write(kByteOrderMark);
   fFile->Write(fBuffer);
   fBuffer = std::string();
}

std::uint64_t TRowText::Close()
{
   fFile->Close();
   return fFile->GetSize();
}

void TRowText::WriteText(std::string_view text)
{
   WriteSafeText(*this, text, kPlain, GetEscape);
}

std::uint64_t WriteTextFile(const std::string& path, std::string_view text)
{
   TOutputFile file(path);
   file.Write(kByteOrderMark);
   WriteSafeText(file, text, TPlainBytes(""), [](char) { return std::string_view(); });
   file.Close();
   return file.GetSize();
}
