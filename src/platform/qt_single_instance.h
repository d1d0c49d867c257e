#pragma once
#include <QLockFile>

#include <string>

namespace melvane {

/// Tells whether the program already runs for this user. The first to ask holds the place until it is
/// destroyed or its process dies.
class QtSingleInstance {
 public:
    /// The place of this user, in the session's own folder or the temporary one.
    QtSingleInstance() : QtSingleInstance(usualPlace()) {}
    explicit QtSingleInstance(const std::string& lockFile);

    /// Takes the place when it is free. Where no lock can be made at all the answer is false.
    bool anotherRuns();

 private:
    static std::string usualPlace();

    QLockFile lock_;
};

}  // namespace melvane
