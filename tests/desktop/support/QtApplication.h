#pragma once

/// Linking this in starts Qt without a display before the first test; nothing to call.
namespace desktop::test {

/// Runs what is waiting in Qt's event loop, deferred deletions included.
void RunPendingEvents();

}  // namespace desktop::test
