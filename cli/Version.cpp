#include "Version.h"

#include "Commit.h"

std::string GetVersionText()
{
   const std::string text = std::string("qsxreport ") + QSX_VERSION;
   const std::string commit = GetCommit();
   return commit.empty() ? text : text + " (" + commit + ")";
}

std::string GetCommit()
{
   return QSX_COMMIT;
}
