#pragma once

#include "FleetFrame.h"

/// Writes what stands above the machines on the front page: the verdict of the fleet, its
/// subsystems in trouble, and the firmware that stands apart.
void WriteFleetFront(THtmlSink& out, const TFleetSite& site);

/// Writes the places where a report was to be. Missing: nothing where there is none.
void WriteFleetGaps(THtmlSink& out, const TFleet& fleet);
