#pragma once

#include <string>

#include "lumira/import/ImportProduct.h"

namespace desktop {

/// The tables of the sample: structure, mass data and configuration filters.
protocol::Result<lumira::ImportTables> ReadSampleTables(const std::string& samplesFolder);

/// Makes a product file from the sample's tables. A file that has the name already is set aside once the new
/// one is whole; when making it fails, everything is as it was.
protocol::Result<lumira::ImportReport> CreateSampleProduct(const std::string& samplesFolder,
                                                           const std::string& file);

/// Gives a product file another name, NameSetAside, together with what its database keeps beside it: a log
/// that was left there would be taken for one of the next file of the name. A file that was set aside before
/// is replaced; nothing happens when there is no product file.
protocol::Result<void> SetAside(const std::string& file);
std::string NameSetAside(const std::string& file);

}  // namespace desktop
