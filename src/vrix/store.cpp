#include "vrix/store.h"

#include "backup/backed_up_registry.h"
#include "common/refusal.h"
#include "makers/embedded/journal_registry.h"

namespace vrix {

std::unique_ptr<EmbeddedRegistry> copyOf(const ProductStore& store, const std::vector<KeyPath>& parts) {
    Plan plan;
    for (const KeyPath& part : parts) {
        store.walk(part, [&](StoredKey key) {
            plan.push_back({StoreChange::Kind::makeKey, key.path});
            for (StoredValue& value : key.values) {
                plan.push_back({StoreChange::Kind::setValue, key.path, std::move(value)});
            }
        });
    }
    auto copy = std::make_unique<EmbeddedRegistry>([&registry = store.registry()](const std::string& name) {
        const std::string unknown = '%' + name + '%';
        std::string text = registry.expandEnvironment(unknown);
        return text == unknown ? std::nullopt : std::optional(std::move(text));
    });
    perform(*copy, plan);
    return copy;
}

Store::Store(Run& run, Use use) : machine_(run.machine) {
    const bool isRehearsal = use == Use::writing && run.request.dryRun;
    const bool writes = use == Use::writing && !isRehearsal;
    if (run.request.isOnRegistry()) {
        openRegistry(run.request.view);
    } else if (run.request.isTrial) {
        // Where the Trial has never run, its store is empty.
        openJournal(machine_.localDataFolder("Vrix Toolkit Trial") + "store.journal", writes, true);
        keepBackupsIn(machine_.localDataFolder(trialBackups));
    } else {
        openJournal(backupNamed(run.request.store), writes, isRehearsal);
    }
    if (isRehearsal) store_ = copyOf(ProductStore(*store_));
    if (writes && backups_ && !run.request.noBackup) {
        backedUp_ = std::make_unique<BackedUpRegistry>(*store_, [this] { backUp(); });
    }
}

void Store::change(const Plan& plan, std::size_t* made) {
    perform(registry(), plan, made);
    if (journal_ != nullptr && !journal_->sync()) {
        throw Refusal(Refusal::Kind::refused, "the disk has not confirmed the changes: a loss of power may undo them");
    }
}

void Store::backUp() {
    try {
        backup_ = backups_->keep(*store_, machine_.now());
    } catch (const Refusal& refusal) {
        throw Refusal(refusal.kind(), std::string(refusal.what()) + ", and --no-backup goes on without a backup");
    }
}

void Store::openRegistry(RegistryView view) {
    store_ = machine_.registry(view);
    if (!store_) {
        throw Refusal(Refusal::Kind::wrongUse, view == RegistryView::own
                                                   ? "this system has no registry: name a journal by --store FILE"
                                                   : "this system has no registry of that view");
    }
    if (view == RegistryView::own) view = machine_.ownView();
    keepBackupsIn(machine_.localDataFolder(registryBackups(view == RegistryView::bits64 ? 64 : 32)));
}

void Store::openJournal(const std::string& path, bool writes, bool mayLack) {
    if (writes) {
        auto journal = std::make_unique<JournalRegistry>(path, Environment(), machine_.disk());
        journal_ = journal.get();
        store_ = std::move(journal);
    } else if (machine_.disk().kindOf(path) == PathKind::file) {
        store_ = std::make_unique<JournalSnapshot>(path, Environment(), machine_.disk());
    } else if (mayLack) {
        store_ = std::make_unique<EmbeddedRegistry>();
    } else {
        throw Refusal(Refusal::Kind::notFound, "the store " + quoted(path) + " is not there");
    }
}

// The path of a backup by its name in the list of backups; any other text is a path.
std::string Store::backupNamed(const std::string& text) {
    Disk& disk = machine_.disk();
    const int width = machine_.ownView() == RegistryView::bits64 ? 64 : 32;
    if (!BackupFolder::isName(text) || disk.kindOf(text) == PathKind::file) return text;
    for (const std::string& folder :
         {registryBackups(width), registryBackups(width == 64 ? 32 : 64), std::string(trialBackups)}) {
        const BackupFolder backups(machine_.localDataFolder(folder), disk);
        if (const auto name = backups.find(text)) return backups.pathOf(*name);
    }
    return text;
}

void Store::keepBackupsIn(const std::string& folder) {
    backups_ = std::make_unique<BackupFolder>(folder, machine_.disk());
}

}  // namespace vrix
