#pragma once

#include "definitions/TReportParameters.h"
#include "common/Json.h"

// A report definition as JSON, every setting of it, in a fixed order of the keys. The trace and the
// printed catalogue share this form.

void WriteJson(TJsonWriter& json, const TReportParameters& params);
void WriteJson(TJsonWriter& json, const TReportParameters::TReportClass& reportClass);
void WriteJson(TJsonWriter& json, const TReportParameters::TReportProperty& property);
