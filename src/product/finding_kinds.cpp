#include <algorithm>
#include <array>

#include "product/check.h"

namespace vrix {

namespace {

using enum Severity;

constexpr std::array kinds{
    FindingKind{
        "added-elsewhere", note, "A Topic stands in both lists.", "Rename one of the two in the Toolkit.",
        "The installed Topics and the added ones are shown as one list. Two Topics of one name, in whatever case, "
        "share one index and one row of dependencies, so that the dependencies of one are those of the other."},
    FindingKind{"blank-at-path-end", warning, "A path begins or ends with a blank.",
                "Enter the path anew without the blank.",
                "The platform takes blanks at the end of a file's name away when it makes the file, and not when it "
                "looks for it, so such a path finds nothing."},
    FindingKind{"drive-letter", note, "A path is on a drive that other users may not have.",
                "Use a path of the form \\\\server\\share\\file if the drive is a mapped one.",
                "A mapped drive belongs to one user's session. Neither the builder under another user nor a program "
                "with administrator rights finds it."},
    FindingKind{"half-character", warning, "A name or a text holds half a character.", "Enter it anew.",
                "The registry keeps characters beyond the first 65,536 as two halves, and lets a program store one of "
                "them alone. No screen shows it and no settings file holds it. JSON files and backups keep it."},
    FindingKind{"index-without-topic", note, "The table of indexes has an entry for no Topic.",
                "Save the dependencies in the Toolkit, or apply a file of the Product.",
                "A deleted Topic leaves its index behind. A new Topic of the same name takes that index up again."},
    FindingKind{"key-of-nothing", error, "A row of the list has no key.", "Remove the row with \"vrix remove\".",
                "The Toolkit takes the empty key for the root of all Products. Its Delete would work on all of them, "
                "and its Edit on none."},
    FindingKind{"key-without-settings", error, "A row of the list leads to settings that are not there.",
                "Apply a file of the Product, or remove it.",
                "All settings of such a Product read as empty, and a switch that is empty ends the Toolkit as soon as "
                "its page is opened."},
    FindingKind{"leftover", warning, "Settings lie in the store that belong to no Product.",
                "Apply a file of that Product to get it back, or remove it by its key.",
                "The Toolkit's Delete leaves a Product's added Topics behind, and with them the key and the date of "
                "creation, which then meets the check for a key that is in use."},
    FindingKind{"line-break", warning, "A text holds a line break.", "Enter the text anew without it.",
                "A settings file has one line for each value. A text of several lines cannot be read back from it, by "
                "no program."},
    FindingKind{"missing-file", warning, "A file is not there.", "Put the file there, or correct the path.",
                "The Product names a document that this machine does not find under that path and with these rights."},
    FindingKind{"missing-option", error, "A switch or a position is missing.", "Apply a whole file of the Product.",
                "The Toolkit reads a missing value as empty text, which is no number. The page of that option ends the "
                "program when it is opened for this Product."},
    FindingKind{"nested-products", error, "The settings of two Products lie in one another.",
                "Make the inner one anew under a key without backslash.",
                "A key with a backslash may lie within the settings of another Product. What removes that one takes "
                "the inner one along."},
    FindingKind{"no-topics", error, "The Product has no Topics.",
                "Create a Topic in the Toolkit, or apply a whole file of the Product.",
                "The pages for dependencies and order, and the export, need at least one Topic and end the Toolkit "
                "without."},
    FindingKind{"odd-option", error, "A switch or a position is not what it can be.",
                "Apply a file that has the right value.",
                "A switch is 0 or 1, the position of a user defined field 0 to 4. The page of that option ends the "
                "Toolkit at anything else."},
    FindingKind{"odd-type", warning, "A value is no plain text.", "Apply a settings file: all values in it are texts.",
                "The Toolkit writes texts alone, and reads other types as their decimal number or their bytes. A "
                "settings file tells no types."},
    FindingKind{"one-topic-left", error, "One Topic is left, and the dependencies of others are still there.",
                "Apply a JSON file of the Product without those dependencies.",
                "When the last but one Topic is deleted, the Toolkit leaves table and rows as they were. A row whose "
                "number is beyond the Topics ends the page for dependencies."},
    FindingKind{"other-view", note, "The Product also stands in the registry's other view.",
                "Look at both with --view 64 and --view 32, and remove the one that nobody reads.",
                "64-bit Windows keeps two stores, one for 64-bit and one for 32-bit programs. A program sees one of "
                "them, so two Products of one name can differ without notice."},
    FindingKind{"path-with-double-backslash", warning, "A path has a double backslash in its middle.",
                "Enter the path anew with single backslashes.",
                "The export takes a double backslash for the start of a network path and loses what stands in front "
                "of it."},
    FindingKind{"percent-pair", note, "A text between two percent signs is replaced when it is read.",
                "Write the text out if it should be the same on every machine.",
                "Two percent signs enclose the name of an environment variable. The Toolkit shows and exports its "
                "value on this machine, and saves that value when the page is saved."},
    FindingKind{"plain-backslash", warning, "A name or a text that is no path holds a backslash.",
                "Use \"vrix apply\" for the settings file, not the registry editor, or JSON.",
                "The settings file does not double it, and the registry editor takes a single one as the start of a "
                "special character: it drops it, or the value."},
    FindingKind{"quotation-mark", warning, "A name or a text holds a quotation mark.",
                "Use \"vrix apply\" for the settings file, not the registry editor, or JSON.",
                "The settings file writes it as it stands. The registry editor ends the text there, drops the value "
                "and says nothing."},
    FindingKind{"relative-path", warning, "A path does not begin with a drive or a server.", "Enter the whole path.",
                "A relative path counts from the current folder of the program that reads it, which differs from "
                "program to program and from start to start."},
    FindingKind{"row-beyond-topics", error, "A dependency row has no number of a Topic.",
                "Apply a JSON file of the Product without that row.",
                "The page for dependencies puts each row in the place of its number. A number beyond the Topics, or "
                "a name that is no number, ends the Toolkit when the page is opened."},
    FindingKind{"same-name-in-both-trees", note, "An installed Product and one of the Toolkit have the same name.",
                "Rename one of the two.",
                "The lists of the Toolkit do not tell the trees apart, so the two rows look alike."},
    FindingKind{"too-many-rows", error, "A list has more rows than the Toolkit can count.",
                "Split the Product, or remove rows.",
                "The Toolkit counts two cells for each row in 16 bits. With more than 16,383 rows a page ends the "
                "program, or leaves the rest out."},
    FindingKind{"topic-without-index", error, "A Topic is missing in the table of indexes.",
                "Save the dependencies in the Toolkit.",
                "Without an index the Topic has no dependencies, and the next change of the Topics gives it a number "
                "that another one may have. Without any the export ends the Toolkit."},
    FindingKind{
        "topic-without-row", error, "A Topic has no dependency row.", "Save the dependencies in the Toolkit.",
        "The Topic's index leads to no row, so it depends on nothing, whatever was entered once. Without any row the "
        "page for dependencies and the export end the Toolkit."},
    FindingKind{"two-products-one-key", error, "Two Products have the same key.",
                "Make one of them anew under a key of its own, and remove its row.",
                "Both rows lead to the same settings: what is changed in one changes the other, and deleting one "
                "leaves the other without."},
    FindingKind{"unknown-dependency", error, "A Topic depends on a number that is no Topic's.",
                "Open the dependencies of the Topic in the Toolkit, correct the marks and save them.",
                "A number that fits no Topic marks the Topic of the number before once more, or the first one. The "
                "next save makes that wrong dependency a real one."},
    FindingKind{"unknown-value", note, "A value or a key is not one of a Product's.",
                "Remove it if nothing needs it: \"vrix apply\" does with a file that does not name it.",
                "The Toolkit neither reads nor exports it. JSON files and backups keep it."},
    FindingKind{"unnamed-value", error, "A key has an unnamed value in front of others, or nothing else.",
                "Apply a settings file of the Product, or remove the value with a registry editor.",
                "The Toolkit's lists skip the text of an unnamed value and not its name, so that names and texts no "
                "longer fit each other, or the list fails."},
    FindingKind{"unnamed-value-behind", note, "A key has an unnamed value behind all others.",
                "Nothing needs to be done; a settings file does not keep it.",
                "The Toolkit leaves one behind when it saves the Topics. It does no harm as long as nothing comes "
                "behind it, as the next save of the dependencies may do."},
    FindingKind{"unreachable-value", warning, "A key has a value whose name holds a zero character.",
                "Remove the key with \"vrix remove\" and apply the Product anew, or leave the value.",
                "Windows lists such a value and finds it by no name, so that it can be neither read nor removed. The "
                "Toolkit, files and backups pass over it. It goes with its key."},
};

}  // namespace

std::span<const FindingKind> findingKinds() { return kinds; }

const FindingKind* findFindingKind(std::string_view name) {
    const auto found =
        std::find_if(kinds.begin(), kinds.end(), [&](const FindingKind& kind) { return name == kind.name; });
    return found == kinds.end() ? nullptr : &*found;
}

const char* severityName(Severity severity) {
    if (severity == error) return "error";
    return severity == warning ? "warning" : "note";
}

}  // namespace vrix
