#pragma once
#include <filesystem>

namespace melvane::test {

/// The process has the current folder back that it had: the program goes to one of its own.
class KeptFolder {
 public:
    KeptFolder() = default;
    ~KeptFolder() {
        std::error_code failed;
        std::filesystem::current_path(before_, failed);
    }
    KeptFolder(const KeptFolder&) = delete;
    KeptFolder& operator=(const KeptFolder&) = delete;

 private:
    std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace melvane::test
