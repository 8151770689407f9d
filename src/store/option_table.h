#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace vrix {

// What an option's text is: "0" or "1", any text, the path of a file, or a row of a list from 0 with -1 for none.
enum class OptionKind { flag, text, path, position };

// Options of one kind: a name, or with a count the names "1" to that count, the number taking the place of "#".
struct OptionFamily {
    std::string_view pattern;
    OptionKind kind;
    int count = 0;
};

// All options of a Product in the order in which a new Product is stored. The only place that defines their order and
// kind.
inline constexpr std::array optionFamilies{
    OptionFamily{"AllowChangeCourseName", OptionKind::flag},
    OptionFamily{"AllowNoConclusion", OptionKind::flag},
    OptionFamily{"AllowNoContentSummary", OptionKind::flag},
    OptionFamily{"AllowNoCoverPage", OptionKind::flag},
    OptionFamily{"AllowNoTOC", OptionKind::flag},
    OptionFamily{"AllowNoUserDefined#", OptionKind::flag, 10},
    OptionFamily{"AllowUseAlternateCoverPage", OptionKind::flag},
    OptionFamily{"ConclusionPath", OptionKind::path},
    OptionFamily{"ContentSummaryPath", OptionKind::path},
    OptionFamily{"CoverPage#", OptionKind::path, 3},
    OptionFamily{"CoverPage#Name", OptionKind::text, 3},
    OptionFamily{"DefaultConclusion", OptionKind::flag},
    OptionFamily{"DefaultContentSummary", OptionKind::flag},
    OptionFamily{"DefaultCourseName", OptionKind::text},
    OptionFamily{"DefaultCover", OptionKind::flag},
    OptionFamily{"DefaultCoverPage", OptionKind::position},
    OptionFamily{"DefaultTOC", OptionKind::flag},
    OptionFamily{"DefaultUserDef#", OptionKind::flag, 10},
    OptionFamily{"ShowConclusion", OptionKind::flag},
    OptionFamily{"ShowContentSummary", OptionKind::flag},
    OptionFamily{"ShowCourseName", OptionKind::flag},
    OptionFamily{"ShowTOC", OptionKind::flag},
    OptionFamily{"ShowUserDefined#", OptionKind::flag, 10},
    OptionFamily{"TOCPath", OptionKind::path},
    OptionFamily{"UserDefined#", OptionKind::text, 10},
    OptionFamily{"UserDefined#Path", OptionKind::path, 10},
    OptionFamily{"UserDefined#Pos", OptionKind::position, 10},
    OptionFamily{"DefaultOutputFile", OptionKind::path},
    OptionFamily{"TemplatePath", OptionKind::path},
    OptionFamily{"DefaultSmartFields", OptionKind::flag},
};

constexpr int optionCount() {
    int count = 0;
    for (const OptionFamily& family : optionFamilies) count += family.count == 0 ? 1 : family.count;
    return count;
}
static_assert(optionCount() == 88);

// One option: the name of its value, and what its text is.
struct OptionRow {
    std::string name;
    OptionKind kind;
};

// The options one by one, in the same order.
const std::vector<OptionRow>& optionTable();
// The option of exactly that name, or null.
const OptionRow* findOption(std::string_view name);

// The pattern with the number in the place of "#".
std::string numbered(std::string_view pattern, int number);

}  // namespace vrix
