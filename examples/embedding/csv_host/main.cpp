// The reports of a folder of CSV files, one class a file, as Markdown: csv_host CSV-FOLDER FOLDER
#include <iostream>

#include "Store.h"
#include "TMarkdownWriter.h"
#include "run/TReport.h"

int main(int argc, char** argv)
{
   if (argc != 3) {
      std::cerr << "usage: csv_host CSV-FOLDER FOLDER\n";
      return 2;
   }
   try {
      TMarkdownWriter writer;
      TReport(OpenCSVStore(argv[1]), {}, argv[2]).Write(&writer, {});
   } catch (const std::exception& failure) {
      std::cerr << failure.what() << '\n';
      return 1;
   }
}
