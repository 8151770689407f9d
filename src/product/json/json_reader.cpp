#include "product/json/json_reader.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "product/encoded_text.h"
#include "product/product.h"

namespace vrix {

namespace {

// A callback of the parser: refuses duplicate members, which the parser would accept, and deep nesting, which would
// overflow the stack of recursive readers.
class Watch {
public:
    bool operator()(int depth, Json::parse_event_t event, const Json& parsed) {
        using Event = Json::parse_event_t;
        constexpr int mostLevels = 100;
        const bool goesDown = event == Event::object_start || event == Event::array_start;
        if (goesDown && depth == mostLevels) throw malformed("", "it has more than 100 levels");
        if (event == Event::object_start) names_.emplace_back();
        if (event == Event::object_end) names_.pop_back();
        if (event != Event::key) return true;
        lastName = '"' + parsed.get<std::string>() + '"';
        if (!names_.back().insert(lastName).second) throw malformed("", "the member " + lastName + " stands twice");
        return true;
    }
    std::string lastName{"the start"};

private:
    std::vector<std::set<std::string>> names_;  // of the members, by nesting level
};

}  // namespace

Json parsedJson(std::string_view text) {
    const auto marked = markedText(text);
    if (marked) text = *marked;
    Watch watch;
    try {
        return Json::parse(text, std::ref(watch));
    } catch (const Json::parse_error& error) {
        const auto before = text.substr(0, error.byte);
        const auto line = 1 + std::count(before.begin(), before.end(), '\n');
        throw malformed("line " + std::to_string(line), "this is no JSON");
    } catch (const Json::out_of_range&) {
        throw malformed("behind " + watch.lastName, "a number is out of range");
    }
}

}  // namespace vrix
