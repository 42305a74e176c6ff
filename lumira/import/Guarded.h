#pragma once

#include <exception>
#include <new>
#include <string>

#include "protocol/Result.h"

namespace lumira {

/// Does a piece of work that answers a `protocol::Result`. What is thrown on the way becomes a failure of
/// kind Internal, so that a want of memory ends with a message and not with the program.
template <class Work>
auto Guarded(Work&& work) -> decltype(work()) {
  using protocol::Error;
  using protocol::ErrorKind;
  try {
    return work();
  } catch (const std::bad_alloc&) {
    return Error{ErrorKind::Internal, "there is not enough memory"};
  } catch (const std::exception& error) {
    return Error{ErrorKind::Internal, std::string("an unexpected failure: ") + error.what()};
  }
}

}  // namespace lumira
