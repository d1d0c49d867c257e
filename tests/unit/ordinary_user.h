#pragma once
#include <unistd.h>

namespace melvane::test {

/// Nobody in particular, where the tests run as the one who may do everything.
class OrdinaryUser {
 public:
    OrdinaryUser() : changed_(geteuid() == 0 && seteuid(65534) == 0) {}
    ~OrdinaryUser() {
        if (changed_) [[maybe_unused]]
            const int ignored = seteuid(0);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
    bool changed_;
};

}  // namespace melvane::test
