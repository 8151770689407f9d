#pragma once

#include "platform/disk.h"
#include "platform/files.h"

namespace vrix {

// The pages' files on a disk.
class StandardFiles final : public Files {
public:
    explicit StandardFiles(Disk& disk = systemDisk()) : disk_(disk) {}

    bool exists(const std::string& path) override;
    void remove(const std::string& path) override;
    std::unique_ptr<TextStream> createText(const std::string& path) override;
    std::unique_ptr<TextStream> openText(const std::string& path) override;

private:
    std::string placeOf(const std::string& path);
    std::string existing(const std::string& path);

    Disk& disk_;
};

}  // namespace vrix
