#include "common/ReadRunFacts.h"

#include <initializer_list>

#include "common/SystemLabels.h"

namespace {

struct TSource
{
   const char* fClass;
   const char* fProperty;
};

class TFactReader
{
public:
   TFactReader(const boost::shared_ptr<ICIMNamespace>& cimNamespace, const TContext& context)
      : fNamespace(cimNamespace), fContext(context)
   {}

   /// The first source that has a text; "" where none has.
   std::string Read(std::initializer_list<TSource> sources)
   {
      for (const TSource& source : sources) {
         const std::string text = ReadOne(source);
         if (!text.empty())
            return text;
      }
      return {};
   }

private:
   std::string ReadOne(const TSource& source)
   {
      try {
         const boost::shared_ptr<ICIMClass> cimClass =
            fNamespace->GetClass(source.fClass, fContext);
         if (!cimClass)
            return {};
         std::vector<boost::shared_ptr<ICIMInstance>> instances;
         cimClass->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(instances), true,
                                      fContext);
         if (instances.empty())
            return {};
         const auto property = instances.front()->GetProperty(source.fProperty, fContext);
         return property ? property->GetValueString() : std::string();
      } catch (const TQSXException&) {
         return {};
      }
   }

   boost::shared_ptr<ICIMNamespace> fNamespace;
   const TContext fContext;
};

/// Joins what is there with the text.
std::string Join(std::initializer_list<std::string> parts, const char* separator)
{
   std::string joined;
   for (const std::string& part : parts) {
      if (part.empty())
         continue;
      if (!joined.empty())
         joined += separator;
      joined += part;
   }
   return joined;
}

/// A product name ends in " -" where the collection knew no machine type to append.
std::string WithoutTrailingDash(std::string text)
{
   text.erase(text.find_last_not_of(" -") + 1);
   return text;
}

}  // namespace

TRunFacts ReadRunFacts(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                       const TContext& context)
{
   TRunFacts facts;
   if (!cimNamespace)
      return facts;

   TFactReader reader(cimNamespace, context);
   const auto read = [&reader](std::initializer_list<TSource> sources) {
      return reader.Read(sources);
   };

   facts.fMachine = read({{"ZANSG_ComputerSystem", "Name"},
                          {"ZANSG_IPService", "HostName"},
                          {"CIM_ComputerSystem", "Name"}});
   const std::string maker =
      read({{"ZANSG_ComputerSystem", "Manufacturer"}, {"CIM_PhysicalElement", "Manufacturer"}});
   const std::string product =
      read({{"ZANSG_ComputerSystem", "ProductName"}, {"CIM_PhysicalElement", "Model"}});
   facts.fProduct = Join({maker, WithoutTrailingDash(product)}, " ");
   facts.fSerialNumber = read({{"ZANSG_ComputerSystem", "SerialNumber"}});

   facts.fSystem =
      read({{"ZANSG_OperatingSystem", "Name"}, {"VMware_HypervisorSoftwareIdentity", "Name"}});
   const std::string kernel = Join({read({{"ZANSG_OperatingSystem", "KernelName"}}),
                                    read({{"ZANSG_OperatingSystem", "KernelRelease"},
                                          {"ZANSG_OperatingSystem", "Version"},
                                          {"VMware_HypervisorSoftwareIdentity", "VersionString"}})},
                                   " ");
   facts.fKernel = Join({kernel, read({{"ZANSG_OperatingSystem", "HardwarePlatform"}})}, ", ");
   facts.fUpTime = read({{"ZANSG_OperatingSystem", "UpTime"}});

   facts.fCollected = read({{"ZANSG_TimeZone", "LocalDateTime"}});
   facts.fTimeZone = read({{"ZANSG_TimeZone", "TheTimeZone"}});
   const std::string build = read({{"ZANSG_QSXProduct", "Build"}});
   facts.fCollectedBy = Join(
      {Join({read({{"ZANSG_QSXProduct", "Name"}}), read({{"ZANSG_QSXProduct", "Version"}})}, " "),
       build.empty() ? "" : "build " + build},
      ", ");
   return facts;
}

std::vector<TComparedSystem> ReadComparedSystems(
   const boost::shared_ptr<ICIMNamespace>& cimNamespace, const std::vector<std::string>& labels,
   const std::vector<std::string>& files)
{
   std::vector<TComparedSystem> systems;
   for (std::size_t i = 0; i < labels.size(); ++i) {
      const TContext context = {{"nsIndex", TCIMValue(static_cast<unsigned short>(i))}};
      const TRunFacts facts = ReadRunFacts(cimNamespace, context);
      TComparedSystem system;
      system.fLabel = labels[i];
      system.fSerialNumber = facts.fSerialNumber;
      system.fSystem = facts.fSystem;
      system.fCollected = facts.fCollected;
      system.fTimeZone = facts.fTimeZone;
      system.fFile = i < files.size() ? GetFileName(files[i]) : "";
      systems.push_back(system);
   }
   return systems;
}
