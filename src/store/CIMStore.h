#pragma once

/// The whole contract that a host must meet, and the core names in the global namespace, where the
/// report classes live.

#include "Callbacks.h"
#include "CoreServices.h"
#include "ICIMClass.h"
#include "ICIMElement.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"
#include "TCIMDateTime.h"
#include "TCIMReference.h"
#include "TCIMValue.h"
#include "TQSXException.h"

using NZANQSX20::ICIMClass;
using NZANQSX20::ICIMElement;
using NZANQSX20::ICIMInstance;
using NZANQSX20::ICIMNamespace;
using NZANQSX20::ICIMProperty;
using NZANQSX20::ICIMPropertyDecl;
using NZANQSX20::ICIMQualifier;
using NZANQSX20::IIPMILan;
using NZANQSX20::INamespaceProvider;
using NZANQSX20::kNamespaceIndexKey;
using NZANQSX20::kStatusNotFound;
using NZANQSX20::TAddKeyBindingsToMapCallback;
using NZANQSX20::TAddToVectorCallback;
using NZANQSX20::TCIMDateTime;
using NZANQSX20::TCIMReference;
using NZANQSX20::TCIMSchemaHelper;
using NZANQSX20::TCIMValue;
using NZANQSX20::TContext;
using NZANQSX20::TOSSpecific;
using NZANQSX20::TQSXException;
using NZANQSX20::TRootObject;
