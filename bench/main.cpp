#include <exception>
#include <iostream>

#include "product.h"

// Measures the figures whose letters are given: vrix_bench LETTERS [FOLDER FOR FILES] [FOLDER OF THE PROGRAMS]. With
// "trial" in place of the letters it runs everything once, on little.
int main(int count, char** arguments) {
    using namespace vrix::bench;
    const std::string which = count > 1 ? arguments[1] : "trial";
    const std::string folder = count > 2 ? arguments[2] : "";
    const std::string programs = count > 3 ? arguments[3] : "";
    const Scale scale{which == "trial"};
    const auto wanted = [&](char figure) { return scale.trial || which.find(figure) != std::string::npos; };
    try {
        if (wanted('a')) measureStore(scale);
        if (wanted('b')) measureSaves(scale);
        if (wanted('c')) measureTools(scale, folder);
        if (wanted('d')) measurePages(scale);
        if (wanted('e') && !programs.empty()) measureStart(scale, programs);
        if (wanted('f')) measureLasting(scale);
        if (wanted('g') && !programs.empty()) measureCommand(scale, folder, programs);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
