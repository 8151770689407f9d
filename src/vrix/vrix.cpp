#include "vrix/vrix.h"

#include <array>
#include <exception>
#include <nlohmann/json.hpp>

#include "common/code_page.h"
#include "common/refusal.h"
#include "common/runtime_failure.h"
#include "makers/backup/backup_folder.h"
#include "makers/embedded/journal_file.h"
#include "vrix/run.h"

namespace vrix {

namespace {

// Sentences may name texts of the store.
Failure failureOf(const Run& run, const Refusal& refusal) {
    constexpr std::array codes{ExitCode::wrongUse, ExitCode::notFound, ExitCode::refused, ExitCode::malformed};
    return {codes.at(static_cast<std::size_t>(refusal.kind())), run.shown(refusal.what())};
}

// Runs a command and turns what it throws into a failure with a sentence.
ExitCode runCommand(Run& run) {
    try {
        return run.request.command(run);
    } catch (const Refusal& refusal) {
        throw failureOf(run, refusal);
    } catch (const BackupFailed& failed) {
        throw Failure(ExitCode::refused, std::string(failed.what()) + " --no-backup goes on without");
    } catch (const NoJournal& error) {
        throw Failure(ExitCode::malformed, error.what());
    } catch (const JournalError& error) {
        throw Failure(ExitCode::refused, error.what());
    } catch (const HostRefused& refused) {
        throw Failure(ExitCode::refused, refused.what());
    } catch (const RuntimeFailure& failure) {
        throw Failure(ExitCode::refused,
                      std::string("the store holds what the Toolkit cannot read: ") + failure.what());
    }
}

void tell(Host& host, const std::string& sentence, bool isDsc) {
    using Json = nlohmann::ordered_json;
    const auto whole = sentence.ends_with('.') ? sentence : sentence + '.';
    host.writeError((isDsc ? Json{{"error", whole}}.dump() : "vrix: " + whole) + '\n');
}

}  // namespace

int runVrix(const std::vector<std::string>& arguments, Host& host) {
    bool isDsc = !arguments.empty() && arguments[0] == "dsc";
    try {
        const Request request = readArguments(arguments);
        isDsc = request.isDsc;
        Run run(request, host);
        const ExitCode code = runCommand(run);
        host.flush();
        return static_cast<int>(code);
    } catch (const HelpWanted& help) {
        host.write(help.text);
        return static_cast<int>(ExitCode::done);
    } catch (const Failure& failure) {
        tell(host, failure.what(), isDsc);
        return static_cast<int>(failure.code);
    } catch (const std::exception& unforeseen) {
        tell(host, unforeseen.what(), isDsc);
        return static_cast<int>(ExitCode::refused);
    }
}

}  // namespace vrix
