// How much is rendered at once.
#pragma once

namespace brushworks::tools {

/// The number of jobs that was asked for; for 0 as many as there are cores that we may use.
int jobCount(int asked);

}  // namespace brushworks::tools
