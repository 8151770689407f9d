#pragma once

#include <memory>
#include <optional>
#include <string>

#include "backup/backup_folder.h"
#include "makers/embedded/embedded_registry.h"
#include "product/plan.h"
#include "product/product_store.h"
#include "vrix/run.h"

namespace vrix {

class JournalRegistry;

// A registry in memory that holds what the store does.
std::unique_ptr<EmbeddedRegistry> copyOf(const ProductStore& store, const std::vector<KeyPath>& parts = {{}});

// The open store of a run. A journal that is only read stays as it is. To be written to it must be free: it is refused
// while another program has it open.
class Store {
public:
    enum class Use { reading, writing };

    // With --dry-run all writes go to a copy in memory. Throws Refusal for a store that is not there, that may not be
    // used, or that nobody named where the system has no registry. A journal that is missing is made for writing.
    Store(Run& run, Use use);

    // Where the run writes, the first change is preceded by a backup, unless the request forbids it. Journals that the
    // user names have none: they can be copied as files.
    Registry& registry() { return backedUp_ ? *backedUp_ : *store_; }
    ProductStore products() { return ProductStore(registry()); }
    // Makes the changes and adds to `made` those that are made. Before it returns, those of a journal are flushed to
    // the disk. Throws Refusal.
    void change(const Plan& plan, std::size_t* made = nullptr);
    // The backups of this store, or null.
    BackupFolder* backups() const { return backups_.get(); }
    // The backup that was made; empty if none was.
    const std::string& backup() const { return backup_; }

private:
    void openRegistry(RegistryView view);
    void openJournal(const std::string& path, bool writes, bool mayLack);
    std::string backupNamed(const std::string& text);
    void keepBackupsIn(const std::string& folder);
    void backUp();

    Machine& machine_;
    std::unique_ptr<Registry> store_;
    JournalRegistry* journal_ = nullptr;  // the store, where it is one that is written to
    std::unique_ptr<BackupFolder> backups_;
    std::unique_ptr<Registry> backedUp_;
    std::string backup_;
};

}  // namespace vrix
