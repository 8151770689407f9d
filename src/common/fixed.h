#pragma once

namespace vrix {

// For a class whose objects are neither copied nor moved, since others know them by their address or they own a state
// that ends once.
class Fixed {
public:
    Fixed() = default;
    Fixed(const Fixed&) = delete;
    Fixed& operator=(const Fixed&) = delete;

protected:
    ~Fixed() = default;
};

}  // namespace vrix
