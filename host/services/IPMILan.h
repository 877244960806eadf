#pragma once

#include <string>

#include "QSXExport.h"

namespace NZANQSX20 {

/// Sets the address of the remote controller from which the collection came over IPMI LAN; the
/// empty text means that there was none, and TRootObject::GetipmiLanIns then is empty.
QSX_API void SetIPMILanAddress(const std::string& address);

}  // namespace NZANQSX20
