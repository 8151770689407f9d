#include "vrix/store.h"

#include "backup/backed_up_registry.h"
#include "common/refusal.h"
#include "makers/embedded/journal_registry.h"

namespace vrix {

Store::Store(Run& run, const StoreChoice& choice, Use use)
    : machine_(run.machine),
      isRegistry_(choice.kind.value_or(StoreChoice::Kind::registry) == StoreChoice::Kind::registry) {
    if (isRegistry_) {
        openRegistry(choice.view);
    } else if (choice.kind == StoreChoice::Kind::trial) {
        // Where the Trial has never run, its store is empty.
        openJournal(machine_.localDataFolder("Vrix Toolkit Trial") + "store.journal", use, true);
        keepBackupsIn(machine_.localDataFolder(trialBackups));
    } else {
        openJournal(backupNamed(choice.path), use, false);
    }
    if (use == Use::writing && backups_ && !run.request.noBackup) {
        backedUp_ = std::make_unique<BackedUpRegistry>(*store_, [this] { backUp(); });
    }
}

Registry& Store::registry() { return backedUp_ ? *backedUp_ : *store_; }

void Store::change(const Plan& plan, std::size_t& made) {
    perform(registry(), plan, made);
    if (journal_ != nullptr && !journal_->sync()) {
        throw Refusal(Refusal::Kind::refused, "the disk has not confirmed the changes: a loss of power may undo them");
    }
}

void Store::change(const Plan& plan) {
    std::size_t made = 0;
    change(plan, made);
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
    const RegistryView real = view == RegistryView::own ? machine_.ownView() : view;
    keepBackupsIn(machine_.localDataFolder(registryBackups(real == RegistryView::bits64 ? 64 : 32)));
}

void Store::openJournal(const std::string& path, Use use, bool mayLack) {
    if (use == Use::writing) {
        auto journal = std::make_unique<JournalRegistry>(path, Environment(), machine_.disk());
        journal_ = journal.get();
        store_ = std::move(journal);
    } else if (machine_.disk().kindOf(path) == PathKind::file) {
        store_ = std::make_unique<JournalSnapshot>(path, Environment(), machine_.disk());
    } else if (use == Use::rehearsing || mayLack) {
        store_ = std::make_unique<EmbeddedRegistry>();
    } else {
        throw Refusal(Refusal::Kind::notFound, "the store " + quoted(path) + " is not there");
    }
}

// The file of a backup that is named as in the list of backups; any other text is a path.
std::string Store::backupNamed(const std::string& text) {
    Disk& disk = machine_.disk();
    const bool isOwnWide = machine_.ownView() == RegistryView::bits64;
    const bool mayBe = BackupFolder::isName(text) && disk.kindOf(text) != PathKind::file;
    for (const std::string& folder :
         {registryBackups(isOwnWide ? 64 : 32), registryBackups(isOwnWide ? 32 : 64), std::string(trialBackups)}) {
        if (!mayBe) break;
        const BackupFolder backups(machine_.localDataFolder(folder), disk);
        if (const auto name = backups.find(text)) return backups.pathOf(*name);
    }
    return text;
}

void Store::keepBackupsIn(const std::string& folder) {
    backups_ = std::make_unique<BackupFolder>(folder, machine_.disk());
}

}  // namespace vrix
