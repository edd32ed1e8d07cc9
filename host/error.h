// What the host layer throws. No exception of ours ever passes through the library: they start and
// end on the host's side of the boundary.
#pragma once

#include <stdexcept>
#include <string>

namespace brushworks::host {

/// Something went wrong that the caller could not have known: the library is missing, broken, or
/// refused. The text is fit for a user.
class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The caller asked for what does not exist or does not fit: an unknown name, a value out of range.
/// The text names what would have been right.
class UsageError : public Error {
  public:
    using Error::Error;
};

}  // namespace brushworks::host
