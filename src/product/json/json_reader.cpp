#include "product/json/json_reader.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "common/refusal.h"
#include "product/encoded_text.h"
#include "product/product.h"

namespace vrix {

namespace {

// The parser, which would pass over a member that stands twice, and end the program at levels without end.
class Reader final : public nlohmann::detail::json_sax_dom_parser<Json> {
public:
    Reader(Json& json, std::string_view text) : json_sax_dom_parser(json), text_(text) {}

    bool start_object(std::size_t size) {
        goDown();
        return json_sax_dom_parser::start_object(size);
    }
    bool start_array(std::size_t size) {
        goDown();
        return json_sax_dom_parser::start_array(size);
    }
    bool key(std::string& name) {
        if (names_.back().insert(name).second) return json_sax_dom_parser::key(name);
        throw malformed("", "the member \"" + name + "\" stands twice");
    }
    bool end_object() {
        names_.pop_back();
        return json_sax_dom_parser::end_object();
    }
    bool end_array() {
        names_.pop_back();
        return json_sax_dom_parser::end_array();
    }
    bool parse_error(std::size_t at, const std::string& /*token*/, const Json::exception& error) {
        const std::string_view before = text_.substr(0, at);
        const auto line = 1 + std::count(before.begin(), before.end(), '\n');
        const bool isNumber = dynamic_cast<const Json::out_of_range*>(&error) != nullptr;
        throw malformed("line " + std::to_string(line), isNumber ? "a number is out of range" : "this is no JSON");
    }

private:
    void goDown() {
        constexpr std::size_t mostLevels = 100;
        if (names_.size() == mostLevels) throw malformed("", "it has more than 100 levels");
        names_.emplace_back();
    }

    std::string_view text_;
    std::vector<std::set<std::string>> names_;  // of the members, level by level; arrays have none
};

}  // namespace

Json parsedJson(std::string_view text) {
    const auto marked = markedText(text);
    if (marked) text = *marked;
    Json json;
    Reader reader(json, text);
    Json::sax_parse(text, &reader);
    return json;
}

}  // namespace vrix
