#include "run/Corrections.h"
#include "run/TReport.h"
#include "writer/StoreWalk.h"

void TReport::fixProductNameofComputerSystem()
{
   IgnoreFailure([&] {
      for (const boost::shared_ptr<ICIMInstance>& system :
           FindInstances(fNamespace, "ZANSG_ComputerSystem"))
         IgnoreFailure([&] {
            auto name = static_cast<std::string>(ReadValue(system, "ProductName"));
            // One dash alone: of two, the first stays.
            if (!name.empty() && name.back() == '-')
               name.pop_back();
            WriteValue(system, "ProductName", name);
         });
   });
}
