#pragma once
#include <optional>
#include <string>

namespace melvane {

/// A file that is complete or absent: it is written without a name in the target's folder, or where that is
/// not possible under a temporary one, and takes the target's name when it is complete. An earlier file of
/// that name stays until then.
class FileDraft {
 public:
    explicit FileDraft(std::string target);
    /// Removes what was not completed.
    ~FileDraft();
    FileDraft(const FileDraft&) = delete;
    FileDraft& operator=(const FileDraft&) = delete;

    /// Creates the file, empty, open for reading and writing. The descriptor belongs to the draft.
    /// -1 when that is not possible; errno then tells why.
    int open();
    /// Brings the content to the disk and gives it the target's name. One line when that fails.
    std::optional<std::string> complete();
    /// "Cannot write NAME: REASON".
    std::string failure(const std::string& reason) const;

 private:
    bool takeName();
    void discard();

    std::string target_;
    std::string temporary_;  ///< empty: it has no name yet, or is the target itself
    bool isTarget_ = false;
    int descriptor_ = -1;
};

/// The system's words for its last failure (errno).
std::string lastSystemError();

}  // namespace melvane
