#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace vrix {

// The exit codes of the program.
enum class ExitCode {
    done = 0,       // done, or equal, or clean
    different = 1,  // differences or findings
    wrongUse = 2,
    notFound = 3,
    refused = 4,    // by the store or the disk
    malformed = 5,  // a file is not what it should be
};

class Run;

// What the command line asks for. Texts are UTF-8.
struct Request {
    using Command = ExitCode (*)(Run&);

    Command command = nullptr;
    std::string store{};   // "registry", a file, or the name of a backup; empty if none is named
    bool isTrial = false;  // that of the Trial in its place
    RegistryView view = RegistryView::own;
    std::optional<unsigned> codePage{};   // of settings files
    std::vector<std::string> operands{};  // Products, files, a backup, in their order
    std::string folder{};                 // for all exports
    std::string format{};                 // of those
    std::string finding{};                // to explain
    std::optional<std::string> input{};   // an instance; read from the input if none is given
    bool isDsc = false;                   // messages are for the engine
    bool json = false;
    bool yes = false;
    bool noBackup = false;
    bool dryRun = false;
    bool merge = false;
    bool files = false;

    bool isOnRegistry() const { return !isTrial && (store.empty() || store == "registry"); }
};

// Thrown instead of a request where only a text was asked for: help or version.
struct HelpWanted {
    std::string text;
};

// Reads a command line without the program's name. Throws Refusal, and HelpWanted.
Request readArguments(const std::vector<std::string>& arguments);

}  // namespace vrix
