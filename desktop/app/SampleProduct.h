#pragma once

#include <string>

#include "lumira/import/ImportProduct.h"

namespace desktop {

/// Makes a product file from the sample's tables; nothing is left behind when it fails.
protocol::Result<lumira::ImportReport> CreateSampleProduct(const std::string& samplesFolder,
                                                           const std::string& file);

}  // namespace desktop
