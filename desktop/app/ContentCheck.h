#pragma once

#include "lumira/commands/Server.h"
#include "protocol/Result.h"

namespace desktop {

/// Whether what a server stands on can be shown: it is empty, or at least one of its products can be shown. A
/// file may open and still be damaged inside.
///
/// `storedData` of a failure tells whether the content is to blame. It is not when the medium keeps the
/// content back, such as a lock that came after the opening: then nobody knows, even when it is gone a moment
/// later.
protocol::Result<void> CheckContent(lumira::Server& server);

}  // namespace desktop
