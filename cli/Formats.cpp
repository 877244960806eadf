#include "Formats.h"

#include <utility>

#include "html/THtmlWriter.h"
#include "json/TJsonReportWriter.h"
#include "text/TTextReportWriter.h"
#include "trace/TTraceWriter.h"
#include "trace/TTraceWriter_vmwesxi.h"

namespace {

/// The concrete writer, with the pages told as they are begun.
template <typename Concrete>
class TToldWriter : public Concrete
{
public:
   template <typename... Arguments>
   explicit TToldWriter(std::function<void(const std::string&)> onPage, Arguments&&... arguments)
      : Concrete(std::forward<Arguments>(arguments)...), fOnPage(std::move(onPage))
   {}

   void OpenReportFile(std::string path) override
   {
      if (fOnPage)
         fOnPage(path.substr(path.rfind('/') + 1));
      Concrete::OpenReportFile(std::move(path));
   }

private:
   std::function<void(const std::string&)> fOnPage;
};

/// A writer that has nothing to do at the end of a run.
template <typename Writer, typename Concrete>
class TPagesRun : public IWriterRun<Writer>
{
public:
   template <typename Options>
   TPagesRun(const TWriterSettings& settings, const Options& options)
      : fWriter(settings.fOnPage, options)
   {}

   Writer& GetWriter() override { return fWriter; }

private:
   TToldWriter<Concrete> fWriter;
};

template <typename Writer, typename Concrete>
class TTraceRun : public IWriterRun<Writer>
{
public:
   template <typename... Arguments>
   explicit TTraceRun(Arguments&&... arguments) : fWriter(std::forward<Arguments>(arguments)...)
   {}

   Writer& GetWriter() override { return fWriter; }

   bool WantsLogLines() const override { return true; }

   void OnLogLine(int level, const std::string& text) override
   {
      fWriter.GetFile().WriteLogLine(level, text);
   }

   void Finish() override
   {
      fWriter.GetFile().WriteEnd();
      fWriter.GetFile().Finish();
   }

   void Fail(const std::exception& failure) override
   {
      if (const auto* status = dynamic_cast<const TQSXException*>(&failure))
         fWriter.GetFile().WriteEnd(*status);
      else
         fWriter.GetFile().WriteEnd(failure);
      fWriter.GetFile().Finish();
   }

private:
   TToldWriter<Concrete> fWriter;
};

THtmlOptions GetHtmlOptions(const TWriterSettings& settings)
{
   return {settings.fBaseDirectory, settings.fSource,        settings.fWritten,
           settings.fProgram,       settings.fComparedFiles, settings.fCollection};
}

TDocumentOptions GetDocumentOptions(const TWriterSettings& settings)
{
   return {settings.fBaseDirectory, settings.fSource,    settings.fWritten,   settings.fProgram,
           settings.fComparedFiles, settings.fIsOneFile, settings.fCollection};
}

/// Of either kind of run, for a concrete writer of that kind.
template <typename Writer, typename Concrete, auto GetOptions>
std::unique_ptr<IWriterRun<Writer>> MakePagesRun(const TWriterSettings& settings)
{
   return std::make_unique<TPagesRun<Writer, Concrete>>(settings, GetOptions(settings));
}

std::unique_ptr<IWriterRun<TWriter>> MakeTraceRun(const TWriterSettings& settings)
{
   // The library's texts for pages that can be linked, unless another name is asked for.
   const std::string outputFormat = settings.fFormatName.empty() ? "html" : settings.fFormatName;
   return std::make_unique<TTraceRun<TWriter, TTraceWriter>>(
      settings.fOnPage, settings.fOutputDirectory, outputFormat, settings.fBaseDirectory);
}

std::unique_ptr<IWriterRun<TWriter_vmwesxi>> MakeHypervisorTraceRun(const TWriterSettings& settings)
{
   return std::make_unique<TTraceRun<TWriter_vmwesxi, TTraceWriter_vmwesxi>>(
      settings.fOnPage, settings.fOutputDirectory);
}

}  // namespace

const std::vector<TFormat>& GetFormats()
{
   static const std::vector<TFormat> kFormats = {
      {"html", "pages that open in a browser, from the file system", false, "index.html", nullptr,
       nullptr, MakePagesRun<TWriter, THtmlWriter, GetHtmlOptions>,
       MakePagesRun<TWriter_vmwesxi, THtmlWriter_vmwesxi, GetHtmlOptions>},
      {"json", "a JSON document per report and an index, by docs/report.schema.json", false,
       "index.json", nullptr, TJsonReportWriter::kOneFileName,
       MakePagesRun<TWriter, TJsonReportWriter, GetDocumentOptions>,
       MakePagesRun<TWriter_vmwesxi, TJsonReportWriter_vmwesxi, GetDocumentOptions>},
      {"text", "plain text for a terminal or a mail, 100 columns wide", false, "index.txt", nullptr,
       TTextReportWriter::kOneFileName,
       MakePagesRun<TWriter, TTextReportWriter, GetDocumentOptions>,
       MakePagesRun<TWriter_vmwesxi, TTextReportWriter_vmwesxi, GetDocumentOptions>},
      {"trace", "every call that the library makes on a writer, a JSON object a line", true,
       TTraceFile::kName, TTraceFile::kName, TTraceFile::kName, MakeTraceRun,
       MakeHypervisorTraceRun},
   };
   return kFormats;
}

const TFormat* FindFormat(const std::string& name)
{
   for (const TFormat& format : GetFormats())
      if (name == format.fName)
         return &format;
   return nullptr;
}
