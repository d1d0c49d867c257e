#pragma once
#ifdef _WIN32
#include <gtest/gtest.h>

namespace melvane::test {

/// Windows sets no such limit to a program: a test that needs it cannot be told there.
class FileSizeLimit {
 public:
    explicit FileSizeLimit(unsigned long /*bytes*/) { ADD_FAILURE() << "no size of files can be set here"; }
};

}  // namespace melvane::test
#else
#include <sys/resource.h>

#include <csignal>

namespace melvane::test {

/// No file with a descriptor of `count` or above can be opened; 0: none.
class OpenFilesLimit {
 public:
    explicit OpenFilesLimit(rlim_t count) {
        getrlimit(RLIMIT_NOFILE, &before_);
        rlimit limited = before_;
        limited.rlim_cur = count;
        setrlimit(RLIMIT_NOFILE, &limited);
    }
    ~OpenFilesLimit() { setrlimit(RLIMIT_NOFILE, &before_); }
    OpenFilesLimit(const OpenFilesLimit&) = delete;
    OpenFilesLimit& operator=(const OpenFilesLimit&) = delete;

 private:
    rlimit before_{};
};

/// Files may grow to `bytes` only, as on a disk that is full.
class FileSizeLimit {
 public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limited = before_;
        limited.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
    rlimit before_{};
    void (*handler_)(int);
};

}  // namespace melvane::test
#endif
