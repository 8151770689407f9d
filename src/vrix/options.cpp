#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "common/refusal.h"
#include "vrix/commands.h"
#include "vrix/request.h"

namespace vrix {

namespace {

constexpr auto exitCodes =
    "Exit codes: 0 done, equal or clean; 1 differences or findings; 2 wrong use; 3 not found;\n"
    "4 refused by the store or the disk; 5 a file that is not what it should be.\n\n"
    "A PRODUCT is a name, or a key where no name fits. \"installed:\" or \"toolkit:\" in front says in which tree.\n"
    "Where a Product is read, a settings file or a JSON file may stand in its place.\n\n"
    "Examples:\n"
    "  vrix list\n"
    "  vrix compare \"Site Safety Manual\" SiteSafety.kls\n"
    "  vrix apply SiteSafety.kls\n"
    "\"vrix COMMAND --help\" has examples for each command.";

// The name of a positional says itself how often it may stand.
class HelpForm final : public CLI::Formatter {
public:
    HelpForm() { label("SUBCOMMAND", "COMMAND"); }
    std::string make_option_opts(const CLI::Option* option) const override {
        return option->get_positional() ? "" : Formatter::make_option_opts(option);
    }
    std::string make_option_usage(const CLI::Option* option) const override { return make_option_name(option, true); }
};

CLI::Validator oneOf(const std::vector<std::string>& texts) { return CLI::IsMember(texts).description(""); }

// The command line as its parser knows it.
class Options {
public:
    Options() {
        app_.name("vrix");
        app_.set_version_flag("--version", std::string("vrix ") + VRIX_VERSION);
        app_.formatter(std::make_shared<HelpForm>());
        app_.footer(exitCodes);
        app_.fallthrough();
        app_.require_subcommand(1);
        addCommonOptions();
        addReaders();
        addWriters();
        addDsc();
        app_.set_help_all_flag("--help-all", "Print the help of all commands");
    }

    Request read(std::vector<std::string> arguments) {
        try {
            std::reverse(arguments.begin(), arguments.end());
            app_.parse(std::move(arguments));
        } catch (const CLI::CallForHelp&) {
            throw HelpWanted{app_.help()};
        } catch (const CLI::CallForAllHelp&) {
            throw HelpWanted{app_.help("", CLI::AppFormatMode::All)};
        } catch (const CLI::CallForVersion& version) {
            throw HelpWanted{version.what() + std::string("\n")};
        } catch (const CLI::ParseError& error) {
            throw Refusal(Refusal::Kind::wrongUse, std::string(error.what()) + " (\"vrix --help\" tells more)");
        }
        settle();
        return std::move(request_);
    }

private:
    void addCommonOptions() {
        auto* store = app_.add_option("--store", request_.store,
                                      "The store to work on: \"registry\", the file of a journal, or a backup by its "
                                      "file, its name or \"latest\". The registry if not given");
        store->type_name("registry|FILE");
        app_.add_option("--view", view_, "The registry of 64-bit or of 32-bit programs. The own width if not given")
            ->type_name("64|32")
            ->check(oneOf({"64", "32"}));
        app_.add_flag("--trial", request_.isTrial, "Work on the store of the Trial program")->excludes(store);
        app_.add_option("--code-page", request_.codePage, "The code page of settings files, where not the system's")
            ->type_name("N");
        app_.add_flag("--json", request_.json, "Answer in JSON, for machines");
        app_.add_flag("--yes", request_.yes, "Ask nothing");
        app_.add_flag("--no-backup", request_.noBackup, "Change the store without a backup of it");
    }

    CLI::App* add(CLI::App& above, const char* name, const char* what, Request::Command command, const char* example) {
        CLI::App* made = above.add_subcommand(name, what);
        made->footer(std::string("\"vrix --help\" tells the options that go with every command.\n\nExamples:\n") +
                     example);
        made->fallthrough();
        made->callback([this, command] { request_.command = command; });
        return made;
    }
    CLI::Option* takes(CLI::App* made, const char* name, const char* what) {
        return made->add_option(name, request_.operands, what)->type_name("");
    }

    void addReaders() {
        add(app_, "list", "List all Products of a store", command::list, "  vrix list\n  vrix list --trial --json");
        takes(add(app_, "show", "Show one Product", command::show,
                  "  vrix show \"Site Safety Manual\"\n  vrix show installed:SiteSafety --json"),
              "PRODUCT", "The Product")
            ->required()
            ->expected(1);
        CLI::App* check =
            add(app_, "check", "Find what is wrong or sharp in Products", command::check,
                "  vrix check\n  vrix check SiteSafety.kls --files\n  vrix check --explain missing-option");
        takes(check, "[PRODUCT...]", "The Products; all of the store if none is named");
        check->add_flag("--files", request_.files, "Find also files that the Products name and that are not there");
        check->add_option("--explain", request_.finding, "Tell more of a kind of finding")->type_name("NAME");
        takes(add(app_, "compare", "Tell the differences of two Products", command::compare,
                  "  vrix compare \"Site Safety Manual\" SiteSafety.kls\n  vrix compare old.json new.json"),
              "PRODUCT PRODUCT", "The two Products")
            ->required()
            ->expected(2);
        CLI::App* save =
            add(app_, "export", "Write Products to files", command::exportProducts,
                "  vrix export \"Site Safety Manual\" SiteSafety.kls\n"
                "  vrix export SiteSafety.kls SiteSafety.json\n  vrix export --all products --format json");
        takes(save, "[PRODUCT FILE]",
              "The Product, and the file: *.json for JSON, *.xml for a collection of Group Policy preferences, any "
              "other for a settings file")
            ->expected(0, 2);
        save->add_option("--all", request_.folder, "Write every Product of the store into this folder")
            ->type_name("FOLDER");
        save->add_option("--format", request_.format, "What to write with --all")
            ->type_name("kls|json|xml")
            ->check(oneOf({"kls", "json", "xml"}));
        add(app_, "schema", "Print the JSON schema of a Product", command::schema,
            "  vrix schema > product.schema.json");
    }

    void addWriters() {
        CLI::App* apply = add(app_, "apply", "Make the store's Products what the files say", command::apply,
                              "  vrix apply SiteSafety.kls\n  vrix apply --dry-run SiteSafety.json\n"
                              "  vrix apply --merge --yes products/*.json");
        takes(apply, "FILE...", "Settings files and JSON files")->required();
        addPlanOptions(apply);
        CLI::App* remove = add(app_, "remove", "Delete Products with all that they hold", command::remove,
                               "  vrix remove \"Site Safety Manual\"\n  vrix remove --yes toolkit:SiteSafety");
        takes(remove, "PRODUCT...", "The Products of the store; by their keys also what a deletion has left behind")
            ->required();
        addDryRun(remove);
        add(app_, "backups", "List the backups of a store, with what changed since", command::backups,
            "  vrix backups\n  vrix list --store latest");
        CLI::App* restore = add(app_, "restore", "Bring back all Products of a backup, or some", command::restore,
                                "  vrix restore latest\n  vrix restore \"2026-11-22 09-30-05\" SiteSafety --dry-run");
        takes(restore, "BACKUP [PRODUCT...]",
              "The backup: its name as listed, \"latest\", or a file. Then the Products; all of the store if none is "
              "named, where those that came later go")
            ->required();
        addPlanOptions(restore);
    }
    void addPlanOptions(CLI::App* made) {
        made->add_flag("--merge", request_.merge, "Keep what is not named");
        addDryRun(made);
    }
    void addDryRun(CLI::App* made) { made->add_flag("--dry-run", request_.dryRun, "Print the changes and make none"); }

    void addDsc() {
        CLI::App* dsc = app_.add_subcommand("dsc", "Be the DSC resource Vrix/Product");
        dsc->require_subcommand(1);
        dsc->fallthrough();
        dsc->footer("Examples:\n  echo '{\"key\":\"SiteSafety\"}' | vrix dsc get");
        const auto addVerb = [&](const char* name, const char* what, Request::Command command) {
            const std::string example = std::string("  vrix dsc ") + name;
            CLI::App* made = add(*dsc, name, what, command,
                                 (example + " --input '{\"key\":\"SiteSafety\",\"file\":\"SiteSafety.kls\"}'").c_str());
            made->add_option("--input", request_.input, "The instance; read from the input if not given")
                ->type_name("JSON");
            return made;
        };
        addVerb("get", "Tell an instance as it is", command::dscGet);
        addVerb("test", "Tell whether an instance is as it should be", command::dscTest);
        addVerb("set", "Make an instance as it should be", command::dscSet)
            ->add_flag("--what-if,--dry-run", request_.dryRun, "Tell what would be, and change nothing");
        addVerb("delete", "Delete an instance", command::dscDelete);
        add(*dsc, "export", "Tell all instances, a line each", command::dscExport, "  vrix dsc export");
        add(*dsc, "schema", "Print the schema of an instance", command::dscSchema, "  vrix dsc schema");
    }

    void settle() {
        request_.isDsc = app_.got_subcommand("dsc");
        if (view_.empty()) return;
        request_.view = view_ == "64" ? RegistryView::bits64 : RegistryView::bits32;
        if (!request_.isOnRegistry()) throw Refusal(Refusal::Kind::wrongUse, "--view is for the registry alone");
    }

    CLI::App app_{"Products by command: as files, checked, compared, applied, restored."};
    Request request_;
    std::string view_;
};

}  // namespace

Request readArguments(const std::vector<std::string>& arguments) { return Options().read(arguments); }

}  // namespace vrix
