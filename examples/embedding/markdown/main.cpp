// A store made in memory, and its reports as Markdown: markdown_report FOLDER
#include <boost/make_shared.hpp>

#include "TMarkdownWriter.h"
#include "readers/ExpectedClasses.h"
#include "run/TReport.h"
#include "store/TMemoryStore.h"

using namespace NZANQSX20;

int main(int count, char** arguments)
{
   const auto store = boost::make_shared<TMemoryStore>();
   store->GetSchema().Declare({"ZANSG_Process", "", {}, {{"Handle"}, {"Name"}}});
   TStoredClass& processes = *store->GetSchema().Find("ZANSG_Process");
   for (const char* name : {"worker", "watch"}) {
      TInstanceDraft process(processes);
      process.Set(processes.GetSlot("Name"), store->MakeString(name));
      store->Add(process);
   }
   DeclareExpectedClasses(*store);
   TMarkdownWriter writer;
   TReport(OpenNamespace(store), {}, count > 1 ? arguments[1] : ".").Write(&writer, {});
}
