// What the media room throws; the texts are fit for a user.
#pragma once

#include <stdexcept>

namespace brushworks::media {

/// A file could not be read or written, or is damaged.
class MediaError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The caller asked for what is not offered, such as an unknown file type.
class MediaUsageError : public MediaError {
  public:
    using MediaError::MediaError;
};

}  // namespace brushworks::media
