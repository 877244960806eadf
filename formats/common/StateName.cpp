#include "common/StateName.h"

const char* GetStateName(EState state)
{
   switch (state) {
      case EState::kOk:
         return "ok";
      case EState::kUnknown:
         return "unknown";
      case EState::kAttention:
         return "attention";
      case EState::kFailed:
         return "failed";
      case EState::kNone:
         break;
   }
   return nullptr;
}
