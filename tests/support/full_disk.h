#pragma once

#include <csignal>
#include <cstddef>
#include <sys/resource.h>

namespace merov::test
{

/// While it lives, no file of this process grows beyond `room` bytes: a write fails there as on a full disk. It binds
/// every user, also the one who may do anything.
class FullDisk
{
public:
    explicit FullDisk(std::size_t room) : signal_(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit small{room, former_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, signal_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*signal_)(int);
    rlimit former_{};
};

} // namespace merov::test
