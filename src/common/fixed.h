#pragma once

namespace vrix {

// For a class whose objects are neither copied nor moved, since others hold their address or they own a resource that
// is released once.
class Fixed {
public:
    Fixed() = default;
    Fixed(const Fixed&) = delete;
    Fixed& operator=(const Fixed&) = delete;

protected:
    ~Fixed() = default;
};

}  // namespace vrix
