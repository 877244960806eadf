#include "common/ReportFlow.h"

#include "CIMStore.h"

void LogNotice(const std::string& text)
{
   TRootObject::GetCoreLogger()->Log(NZANQSX20::kLogNotice, text);
}
