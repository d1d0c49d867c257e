#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/random_letters.h"

namespace melvane::test {

/// A new, empty folder, with a name that stays short everywhere, that is removed with everything in it at the
/// end of the test.
class TemporaryFolder {
 public:
    TemporaryFolder() : TemporaryFolder(testing::TempDir()) {}
    /// In that one, which ends in a slash.
    explicit TemporaryFolder(const std::string& parent) {
        std::error_code failed;
        do {
            path_ = parent + "melv" + randomLetters(4);
        } while (!std::filesystem::create_directory(path_, failed) && !failed);
        if (failed) ADD_FAILURE() << "no temporary folder can be made at " << path_;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    std::size_t fileCount() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
    }
    std::string make(const std::string& name, std::string_view bytes = {}) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(file(name), std::ios::binary) << bytes;
        return file(name);
    }

 private:
    std::filesystem::path path_;
};

}  // namespace melvane::test
