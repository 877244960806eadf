#pragma once

#include "QSXExport.h"

namespace NZANQSX20 {

/// Whatever an object path can resolve to. A resolved path is cast down with dynamic_pointer_cast.
class QSX_API ICIMElement
{
public:
   virtual ~ICIMElement() = default;
};

}  // namespace NZANQSX20
