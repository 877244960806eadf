// A store made in memory, and its reports as Markdown: markdown_report FOLDER
#include <iostream>

#include <boost/make_shared.hpp>

#include "FillStore.h"
#include "TMarkdownWriter.h"
#include "readers/ExpectedClasses.h"
#include "run/TReport.h"
#include "services/LogSinks.h"
#include "services/TCoreLogger.h"
#include "store/UnknownClass.h"

int main(int argc, char** argv)
{
   TFileLog errors(kLogError);
   TLogAttachment attachment(errors);
   try {
      const auto store = boost::make_shared<TMemoryStore>();
      FillStore(*store);
      DeclareExpectedClasses(*store);
      TMarkdownWriter writer;
      TReport(OpenNamespace(store), {}, argc > 1 ? argv[1] : ".").Write(&writer, {});
   } catch (const TQSXException& failure) {
      const std::string& unknown = GetUnknownClass();
      std::cerr << failure.what()
                << (unknown.empty() ? "" : "; asked for last: class " + unknown + ", not there")
                << '\n';
      return 1;
   } catch (const std::exception& failure) {
      std::cerr << failure.what() << '\n';
      return 1;
   }
}
