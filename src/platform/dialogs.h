#pragma once
#include <string>

namespace melvane {

enum class BoxKind { plain, information, critical, exclamation, question };
enum class BoxButtons { ok, okCancel, yesNo };
enum class BoxAnswer { ok, cancel, yes, no };

/// What a file dialog answers. An empty path means that it was cancelled.
struct FileChoice {
    std::string path;
    int filterIndex = 1;  ///< the chosen entry of the filter, from 1
};

/// What a file dialog is to show. `filter` is "Name|pattern|Name|pattern"; a trailing bar is allowed.
struct FileQuestion {
    std::string title;
    std::string filter;
    std::string folder;    ///< where it opens; empty: where the last one was
    std::string proposed;  ///< file name to begin with
    /// The caller asks before it replaces a file; else the dialog does.
    bool callerAsks = false;
};

/// The modal questions of the program. They serve events through the event loop until they are answered.
class Dialogs {
 public:
    virtual ~Dialogs() = default;
    virtual FileChoice openFile(const FileQuestion& question) = 0;
    virtual FileChoice saveFile(const FileQuestion& question) = 0;
    virtual BoxAnswer messageBox(BoxKind kind, const std::string& title, const std::string& text,
                                 BoxButtons buttons = BoxButtons::ok) = 0;
};

}  // namespace melvane
