// Counts the cores that this process may run on.
#include "job_count.h"

#include <sched.h>

#include <algorithm>

namespace brushworks::tools {

int jobCount(int asked) {
    if (asked > 0) return asked;
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    if (sched_getaffinity(0, sizeof allowed, &allowed) != 0) return 1;
    return std::max(1, CPU_COUNT(&allowed));
}

}  // namespace brushworks::tools
