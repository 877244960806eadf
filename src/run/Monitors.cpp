#include "run/Corrections.h"
#include "run/TReport.h"
#include "writer/StoreWalk.h"

void TReport::fixRedundantMonitorInfo(std::map<std::string, TCIMValue> params)
{
   IgnoreFailure([&] {
      for (const boost::shared_ptr<ICIMInstance>& monitor :
           FindInstances(fNamespace, "ZANSG_DesktopMonitor"))
         IgnoreFailure([&] {
            // The video of the remote supervisor adapter, which nobody looks at.
            if (Contains(static_cast<std::string>(ReadValue(monitor, "Name")), "ZAN GBX2"))
               monitor->Delete(params);
         });
   });
}
