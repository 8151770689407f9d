#pragma once

#include <string>
#include <vector>

#include "shell/toolkit.h"

namespace vrix {

// One stored option of a Product: its value's name and the control that holds it.
struct Option {
    std::string name;
    Control* control;
    bool isPath;
};

// All options of a Product, in the order in which a new Product is stored, with the controls that hold them. Loads and
// saves work on the Product that is selected for editing.
class ProductOptions {
public:
    // All pages must have been made.
    explicit ProductOptions(const Toolkit& toolkit);

    const std::vector<Option>& all() const { return options_; }

    // Each takes its controls in the order given. A load fails with 13, 6 or 380 at a text that its control refuses.
    void load(const std::vector<Control*>& controls) const;
    // The same when editing; the controls of a new Product are emptied.
    void start(const std::vector<Control*>& controls, bool editing) const;
    void remove(const std::vector<Control*>& controls) const;
    void save(const std::vector<Control*>& controls) const;
    // Deletes and saves each value before the next.
    void rewriteEach(const std::vector<Control*>& controls) const;
    // Deletes all values before it saves the first.
    void rewriteAll(const std::vector<Control*>& controls) const;

private:
    const Option& of(const Control& control) const;
    std::string section() const;
    const Toolkit& toolkit_;
    std::vector<Option> options_;
};

}  // namespace vrix
