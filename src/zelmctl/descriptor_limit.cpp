#include "zelmctl/descriptor_limit.hpp"

#include <algorithm>
#include <climits>
#include <sys/resource.h>

namespace {

rlimit limit_of_caller;

}  // namespace

void raise_descriptor_limit()
{
    if (::getrlimit(RLIMIT_NOFILE, &limit_of_caller) != 0)
        return;
    const rlimit raised{limit_of_caller.rlim_max, limit_of_caller.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &raised);
}

int descriptor_limit_of_caller()
{
    return static_cast<int>(std::min<rlim_t>(limit_of_caller.rlim_cur, INT_MAX));
}

void restore_descriptor_limit()
{
    if (limit_of_caller.rlim_max != 0)
        ::setrlimit(RLIMIT_NOFILE, &limit_of_caller);
}
