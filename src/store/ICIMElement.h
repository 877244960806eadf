#pragma once

namespace NZANQSX20 {

/// Whatever an object path can resolve to. A resolved path is cast down with dynamic_pointer_cast.
class ICIMElement
{
public:
   virtual ~ICIMElement() = default;
};

}  // namespace NZANQSX20
