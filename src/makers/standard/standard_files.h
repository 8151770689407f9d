#pragma once

#include "platform/files.h"

namespace vrix {

// Files by the standard library.
class StandardFiles final : public Files {
public:
    bool exists(const std::string& path) override;
    void remove(const std::string& path) override;
    std::unique_ptr<TextStream> createText(const std::string& path) override;
    std::unique_ptr<TextStream> openText(const std::string& path) override;
};

}  // namespace vrix
