#include "zelmctl/descriptor_limit.hpp"

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

void restore_descriptor_limit()
{
    if (limit_of_caller.rlim_max != 0)
        ::setrlimit(RLIMIT_NOFILE, &limit_of_caller);
}
