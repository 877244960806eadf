#include "Formats.h"

#include <utility>

#include "html/THtmlWriter.h"
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
   explicit TPagesRun(const TWriterSettings& settings)
      : fWriter(settings.fOnPage,
                THtmlOptions{settings.fBaseDirectory, settings.fSource, settings.fWritten,
                             settings.fProgram, settings.fComparedFiles})
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

std::unique_ptr<IWriterRun<TWriter>> MakeHtmlRun(const TWriterSettings& settings)
{
   return std::make_unique<TPagesRun<TWriter, THtmlWriter>>(settings);
}

std::unique_ptr<IWriterRun<TWriter_vmwesxi>> MakeHypervisorHtmlRun(const TWriterSettings& settings)
{
   return std::make_unique<TPagesRun<TWriter_vmwesxi, THtmlWriter_vmwesxi>>(settings);
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
       MakeHtmlRun, MakeHypervisorHtmlRun},
      {"trace", "every call that the library makes on a writer, a JSON object a line", true,
       TTraceFile::kName, TTraceFile::kName, MakeTraceRun, MakeHypervisorTraceRun},
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
