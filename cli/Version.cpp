#include "Version.h"

#include "Commit.h"

std::string GetVersionText()
{
   std::string text = std::string("qsxreport ") + QSX_VERSION;
   const std::string commit = QSX_COMMIT;
   return commit.empty() ? text : text + " (" + commit + ")";
}
