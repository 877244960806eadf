#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "readers/TObjectDraft.h"
#include "readers/TSourceText.h"

namespace NZANQSX20 {

/// Instances that wait for declarations, kept as one compact run of bytes.
///
/// Owner: everything is copied; neither draft nor source is needed after Push.
class TPendingInstances
{
public:
   bool IsEmpty() const { return fBlocks.empty(); }

   void Push(const TObjectDraft& draft, const TSource& source);

   /// Hands each instance on, in the order of Push, filled into the draft; memory is given back on
   /// the way.
   void Replay(TObjectDraft& draft,
               const std::function<void(const TObjectDraft&, const TSource&)>& callback);

private:
   std::uint64_t FindSource(const TSource& source);

   std::deque<std::string> fBlocks;
   std::vector<std::unique_ptr<TPlacedSource>> fSources;
   std::unordered_map<std::string, std::uint64_t> fSourceNumbers;
};

}  // namespace NZANQSX20
