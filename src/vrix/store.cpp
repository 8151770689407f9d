#include "vrix/store.h"

#include "makers/backup/backed_up_registry.h"
#include "makers/embedded/journal_registry.h"
#include "makers/embedded/memory_registry.h"

namespace vrix {

Store::Store(Run& run, const StoreChoice& choice, Use use)
    : host_(run.host), isRegistry_(choice.kind.value_or(StoreChoice::Kind::registry) == StoreChoice::Kind::registry) {
    if (isRegistry_) {
        openRegistry(choice.view);
    } else if (choice.kind == StoreChoice::Kind::trial) {
        openJournal(host_.localDataFile("Vrix Toolkit Trial", "store.journal"), "the Trial's store", use);
        keepBackupsIn(host_.localDataFile(trialBackups, ""));
    } else {
        openJournal(choice.path, "the store " + quoted(choice.path), use);
    }
    if (use == Use::writing && backups_ && !run.request.noBackup) {
        backedUp_ =
            std::make_unique<BackedUpRegistry>(*store_, [this] { backup_ = backups_->keep(*store_, host_.now()); });
    }
}

Store::~Store() {
    if (journal_ != nullptr) journal_->sync();
}

Registry& Store::registry() { return backedUp_ ? *backedUp_ : *store_; }

void Store::openRegistry(RegistryView view) {
    store_ = host_.registry(view);
    if (!store_) {
        throw Failure(ExitCode::wrongUse, view == RegistryView::own
                                              ? "this system has no registry: name a journal by --store FILE"
                                              : "this system has no registry of that view");
    }
    const RegistryView real = view == RegistryView::own ? host_.ownView() : view;
    keepBackupsIn(host_.localDataFile(registryBackups(real == RegistryView::wide ? 64 : 32), ""));
}

void Store::openJournal(const std::string& path, const std::string& name, Use use) {
    if (use == Use::writing) {
        auto journal = std::make_unique<JournalRegistry>(path, Environment(), host_.journalDisk());
        journal_ = journal.get();
        store_ = std::move(journal);
    } else if (const auto disk = host_.journalDisk(); disk->isFile(path)) {
        store_ = std::make_unique<JournalSnapshot>(path, Environment(), *disk);
    } else if (use == Use::rehearsing) {
        store_ = std::make_unique<MemoryRegistry>();
    } else {
        throw Failure(ExitCode::notFound, name + " is not there");
    }
}

void Store::keepBackupsIn(const std::string& folder) {
    disk_ = host_.journalDisk();
    backups_ = std::make_unique<BackupFolder>(folder, *disk_);
}

}  // namespace vrix
