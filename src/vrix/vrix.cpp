#include "vrix/vrix.h"

#include <exception>

#include "common/refusal.h"
#include "common/runtime_failure.h"
#include "vrix/run.h"

namespace vrix {

namespace {

// Prints why the command was refused, and gives the exit code for it.
int tell(Console& console, Refusal::Kind kind, const std::string& sentence, bool isDsc) {
    const std::string whole = sentence + '.';
    console.writeError((isDsc ? jsonText({{"error", whole}}) : "vrix: " + shown(whole)) + '\n');
    switch (kind) {
        case Refusal::Kind::wrongUse: return static_cast<int>(ExitCode::wrongUse);
        case Refusal::Kind::notFound: return static_cast<int>(ExitCode::notFound);
        case Refusal::Kind::refused: break;
        case Refusal::Kind::malformed: return static_cast<int>(ExitCode::malformed);
    }
    return static_cast<int>(ExitCode::refused);
}

int runCommand(const Request& request, Console& console, Machine& machine) {
    Run run{request, console, machine};
    const ExitCode code = request.command(run);
    if (!console.flush()) throw Refusal(Refusal::Kind::refused, "the output cannot be written");
    return static_cast<int>(code);
}

}  // namespace

int runVrix(const std::vector<std::string>& arguments, Console& console, Machine& machine) {
    bool isDsc = !arguments.empty() && arguments[0] == "dsc";
    using enum Refusal::Kind;
    try {
        const Request request = readArguments(arguments);
        isDsc = request.isDsc;
        return runCommand(request, console, machine);
    } catch (const HelpWanted& help) {
        console.write(help.text);
        return static_cast<int>(ExitCode::done);
    } catch (const Refusal& refusal) {
        return tell(console, refusal.kind(), refusal.what(), isDsc);
    } catch (const RuntimeFailure& failure) {
        const std::string sentence = "the store holds what the Toolkit cannot read: ";
        return tell(console, refused, sentence + failure.what(), isDsc);
    } catch (const std::exception& unforeseen) {
        return tell(console, refused, unforeseen.what(), isDsc);
    }
}

}  // namespace vrix
