// What a call throws, as a text for tests to look into.
#pragma once

#include <functional>
#include <string>

#include "host/error.h"

namespace brushworks::host {

/// The text of the call's error, after "usage: " where the caller is to blame; "" without an error.
inline std::string messageOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const UsageError& error) {
        return std::string("usage: ") + error.what();
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

}  // namespace brushworks::host
