#include "vrix/store.h"

#include "makers/backup/backed_up_registry.h"
#include "makers/embedded/embedded_registry.h"
#include "makers/embedded/journal_registry.h"

namespace vrix {

Store::Store(Run& run, const StoreChoice& choice, Use use)
    : host_(run.host), isRegistry_(choice.kind.value_or(StoreChoice::Kind::registry) == StoreChoice::Kind::registry) {
    if (isRegistry_) {
        openRegistry(choice.view);
    } else if (choice.kind == StoreChoice::Kind::trial) {
        // Where the Trial has never run, its store is empty.
        openJournal(host_.localDataFile("Vrix Toolkit Trial", "store.journal"), use, true);
        keepBackupsIn(host_.localDataFile(trialBackups, ""));
    } else {
        openJournal(backupNamed(choice.path), use, false);
    }
    if (use == Use::writing && backups_ && !run.request.noBackup) {
        backedUp_ =
            std::make_unique<BackedUpRegistry>(*store_, [this] { backup_ = backups_->keep(*store_, host_.now()); });
    }
}

Registry& Store::registry() { return backedUp_ ? *backedUp_ : *store_; }

void Store::change(const Plan& plan, std::size_t& made) {
    perform(registry(), plan, made);
    if (journal_ != nullptr && !journal_->sync()) {
        throw Failure(ExitCode::refused, "the disk has not confirmed the changes: a loss of power may undo them");
    }
}

void Store::change(const Plan& plan) {
    std::size_t made = 0;
    change(plan, made);
}

void Store::openRegistry(RegistryView view) {
    store_ = host_.registry(view);
    if (!store_) {
        throw Failure(ExitCode::wrongUse, view == RegistryView::own
                                              ? "this system has no registry: name a journal by --store FILE"
                                              : "this system has no registry of that view");
    }
    const RegistryView real = view == RegistryView::own ? host_.ownView() : view;
    keepBackupsIn(host_.localDataFile(registryBackups(real == RegistryView::bits64 ? 64 : 32), ""));
}

void Store::openJournal(const std::string& path, Use use, bool mayLack) {
    if (use == Use::writing) {
        auto journal = std::make_unique<JournalRegistry>(path, Environment(), host_.journalDisk());
        journal_ = journal.get();
        store_ = std::move(journal);
    } else if (const auto disk = host_.journalDisk(); disk->isFile(path)) {
        store_ = std::make_unique<JournalSnapshot>(path, Environment(), *disk);
    } else if (use == Use::rehearsing || mayLack) {
        store_ = std::make_unique<EmbeddedRegistry>();
    } else {
        throw Failure(ExitCode::notFound, "the store " + quoted(path) + " is not there");
    }
}

// The file of a backup that is named as in the list of backups; any other text is a path.
std::string Store::backupNamed(const std::string& text) {
    const auto disk = host_.journalDisk();
    const bool isOwnWide = host_.ownView() == RegistryView::bits64;
    const bool mayBe = BackupFolder::isName(text) && !disk->isFile(text);
    for (const std::string& folder :
         {registryBackups(isOwnWide ? 64 : 32), registryBackups(isOwnWide ? 32 : 64), std::string(trialBackups)}) {
        if (!mayBe) break;
        const BackupFolder backups(host_.localDataFile(folder, ""), *disk);
        if (const auto name = backups.find(text)) return backups.pathOf(*name);
    }
    return text;
}

void Store::keepBackupsIn(const std::string& folder) {
    disk_ = host_.journalDisk();
    backups_ = std::make_unique<BackupFolder>(folder, *disk_);
}

}  // namespace vrix
