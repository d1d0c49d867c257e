#pragma once

namespace melvane {

/// The list from which every instrument is picked, as the rooms below ask for it. User-interface thread.
class Picker {
 public:
    virtual ~Picker() = default;
    /// Shows it and serves events until it is closed; what was picked stands in the state then.
    virtual void showModal() = 0;
};

}  // namespace melvane
