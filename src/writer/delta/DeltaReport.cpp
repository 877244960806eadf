#include "writer/WriterLog.h"
#include "writer/delta/DeltaRecords.h"

using namespace Delta;

namespace {

/// "Missing from " or "Unique to " and the labels that the first finding names, in its order.
std::string MakeHeading(const boost::shared_ptr<TWriter::TInstanceDelta>& found, bool missing,
                        const std::vector<std::string>& labels)
{
   std::string text = missing ? "Missing from " : "Unique to ";
   const char* separator = "";
   for (std::size_t index : ReadNamespaceIndices(found->fDeltas.front(), labels.size())) {
      text += separator + labels[index];
      separator = ", ";
   }
   return text;
}

/// Writes the tables of one class: differences first, then what is missing, then what is unique.
/// Missing: false where the class has no records; nothing is written then.
bool WriteDeltaClass(TWriter& writer, const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                     TWriter::TReportClass& reportClass)
{
   const auto classDelta = boost::make_shared<TWriter::TClassDelta>();
   classDelta->fNamespace = cimNamespace;
   classDelta->fReportClass = &reportClass;
   writer.CreateDeltaInstances(classDelta);
   if (classDelta->fInstances.empty())
      return false;
   if (reportClass.HasTitle()) {
      // The title belongs to the class and stands once, above its first table.
      writer.WriteTableTitle(reportClass.GetTitle(), reportClass.SubTitleEnabled(), false);
      reportClass.ClearTitle();
   }
   for (unsigned int type : {kDeltaProperty, kDeltaMissing, kDeltaUnique})
      for (const auto& [path, record] : classDelta->fInstances) {
         if (!(record->fDeltaType & type))
            continue;
         if (type == kDeltaProperty)
            writer.WritePropertyDeltaTable(record);
         else
            writer.WriteMissingOrExtraDeltaTable(record, type == kDeltaMissing);
      }
   return true;
}

}  // namespace

void TWriter::WriteGenericDeltaReport(TReportParameters params)
{
   LogTrace("Entering TWriter::WriteGenericDeltaReport");
   // The class is not used; where it can't be had, the report ends ahead of any output.
   fNamespace->GetClass("ZANSG_DeltaClass", TContext());
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + params.GetLinkName());
   WriteReportPreamble();
   BeginReportBody();
   if (params.ShowReportTitle())
      WriteReportTitle(params.GetReportName(), "", "");

   bool hasData = false;
   for (TReportClass& reportClass : params.GetClasses())
      if (WriteDeltaClass(*this, fNamespace, reportClass))
         hasData = true;

   EndReportBody();
   CloseReportFile();
   WriteIndexEntry(params.GetLinkName(), params.GetReportName(), hasData);
   LogTrace("Exiting TWriter::WriteGenericDeltaReport");
}

boost::shared_ptr<TWriter::TInstanceDelta> TWriter::FindDeltaInstanceWithDeltas(
   boost::shared_ptr<TInstanceDelta> record, unsigned char type)
{
   for (const auto& finding : record->fDeltas)
      if (ReadType(finding) == type)
         return record;
   for (const auto& child : record->fAssociatedDeltas)
      if (const auto found = FindDeltaInstanceWithDeltas(child, type))
         return found;
   return boost::shared_ptr<TInstanceDelta>();
}

void TWriter::WriteMissingOrExtraDeltaTable(boost::shared_ptr<TInstanceDelta> record, bool missing)
{
   const auto classDelta = record->fClassDelta.lock();
   if (!classDelta->fBackAssociatedClass.lock()) {
      const auto found =
         FindDeltaInstanceWithDeltas(record, missing ? kDeltaMissing : kDeltaUnique);
      WriteTableTitle(MakeHeading(found, missing, fNamespaceLabels), true, true);
   }
   const std::size_t index = record->FindFirstNamespace();
   if (const auto instance = record->GetInstance(index))
      WriteTable(*classDelta->fReportClass, {instance}, false, true, NamespaceContext(index));
   for (const auto& child : record->fAssociatedDeltas)
      WriteMissingOrExtraDeltaTable(child, missing);
   WriteTableBreak();
}
