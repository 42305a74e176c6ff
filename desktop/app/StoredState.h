#pragma once

#include "protocol/PartData.h"
#include "services/LumWBAllDataBuffer.h"

namespace desktop {

/// What of a part's data the server has: the content of the panel's buffer when it was read or saved last.
///
/// The whole content is compared, not what some widgets have done: some of them change the buffer outside
/// edit mode ("StdPartCheckButton", "DeleteButton"). What changes without anybody's editing does not count:
/// filter, configuration handler, the reference of inertia, and whether the computed values are up to date. A
/// compute brings computed values that the server has; they are taken over when it has ended.
class StoredState {
 public:
  void Take(const LumWBAllDataBuffer& buffer);
  /// Only what a compute brings.
  void TakeComputed(const LumWBAllDataBuffer& buffer);
  /// Whether the server has all that a save of the buffer would store.
  bool Has(const LumWBAllDataBuffer& buffer) const;
  /// The same of one property, by its index in the buffer (from 1).
  bool HasProperty(const LumWBAllDataBuffer& buffer, int index) const;

 private:
  protocol::PartData _data;
};

}  // namespace desktop
