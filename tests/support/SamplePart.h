#pragma once

#include "protocol/PartData.h"

/// A part with simple numbers, up to date and stored. SI units, as on the wire.
///
/// Part P-100, placed in the product root ROOT turned by 90° about z and moved by (1, 2, 3) m.
/// - Computed: 2 kg (-0.5, +0.25), centre of gravity (0.1, 0.2, 0.3) m,
///   Ixx 10, Iyy 20, Izz 30, Ixy 1, Ixz 2, Iyz 3 kg·m²
/// - Estimated: 4 kg, centre of gravity (1, 0, 0) m, Ixx 5, Iyy 6, Izz 7 kg·m²
/// - Weighed: without values
///
/// It has an instance, a material (Steel, 7850 kg/m³), no documents and no additional properties.
inline protocol::PartData SamplePart() {
  protocol::PartData part;
  part.partId = "P-100";
  part.instancePath = "R.1|P-100.1";
  part.configurationHandler = "ROOT";
  part.hasInstance = true;
  part.computed = true;
  part.persisted = true;
  part.activeMassType = "Computed";
  protocol::MassType computed;
  computed.name = "Computed";
  computed.status = protocol::MassTypeStatus::Defined;
  computed.mass = 2;
  computed.cg = {0.1, 0.2, 0.3};
  computed.inertia = {10, 20, 30, -1, -2, -3};  // tensor: products negated
  computed.lowerDeviation = 0.5;
  computed.upperDeviation = 0.25;
  protocol::MassType estimated;
  estimated.name = "Estimated";
  estimated.status = protocol::MassTypeStatus::Defined;
  estimated.mass = 4;
  estimated.cg = {1, 0, 0};
  estimated.inertia = {5, 6, 7, 0, 0, 0};
  protocol::MassType weighed;
  weighed.name = "Weighed";
  part.massTypes = {computed, estimated, weighed};
  part.placement = {0, -1, 0, 1, 0, 0, 0, 0, 1, 1, 2, 3};
  part.material.name = "Steel";
  part.material.density = 7850;
  part.material.referenceName = "Cast iron";
  part.material.referenceDensity = 7200;
  part.material.appliedOn = "Part Instance";
  return part;
}

/// The sample part with two revisions of a document, revision B of D-7 the active one.
inline protocol::PartData SamplePartWithDocuments() {
  protocol::PartData part = SamplePart();
  part.documents.used = true;
  part.documents.activeId = "D-7";
  part.documents.activeVersion = "B";
  part.documents.attachedVersion = "A";
  part.documents.revisions = {{"A", "2024-05-01 12:30:00", "eva", std::nullopt, "Computed", 2},
                              {"B", "2024-06-01 08:00:00", "jan", "eva", "Computed, Estimated", 4}};
  return part;
}

/// The sample part with one additional property.
inline protocol::PartData SamplePartWithProperties() {
  protocol::PartData part = SamplePart();
  part.propertiesRequested = true;
  part.dateFormat = "YYYY-MM-DD";
  part.properties = {{"Finish", "painted", 3, false, false, ""}};
  return part;
}

/// The sample part with a property that is a date besides.
inline protocol::PartData SamplePartWithADate() {
  protocol::PartData part = SamplePartWithProperties();
  part.properties.push_back({"Released", "2024-05-01", 1, true, false, ""});
  return part;
}
