#include "store/cregistry.h"

namespace vrix {

namespace {

std::string quoted(const std::string& path) {
    const auto first = path.find_first_not_of(' ');
    std::string text = first == std::string::npos ? "" : path.substr(first, path.find_last_not_of(' ') - first + 1);
    if (text.empty() || text.front() != '"') text.insert(0, 1, '"');
    if (text.back() != '"') text += '"';
    return text;
}

const std::string& orElse(const std::string& text, const std::string& usual) { return text.empty() ? usual : text; }

}  // namespace

// Written twice, so that the classes view and its machine copy agree.
void cRegistry::SetClassValue(const std::string& text) {
    ClassKey = hive::classesRoot;
    Value(text);
    const std::string remembered = SectionKey;
    ClassKey = hive::localMachine;
    SectionKey = "SOFTWARE\\Classes\\" + remembered;
    Value(text);
    SectionKey = remembered;
}

void cRegistry::setClassDefault(const std::string& section, const std::string& text) {
    SectionKey = section;
    ValueKey.clear();
    SetClassValue(text);
}

void cRegistry::setVerb(const std::string& section, const std::string& menuText, const std::string& command) {
    setClassDefault(section, menuText);
    setClassDefault(section + "\\command", command);
}

void cRegistry::CreateEXEAssociation(const ExeAssociation& type) {
    const std::string path = quoted(type.sExePath);
    const std::string shell = type.sClassName + "\\shell\\";
    ValueType = static_cast<std::int32_t>(valuetype::string);
    setClassDefault("." + type.sAssociation, type.sClassName);
    setClassDefault(type.sClassName, type.sClassDescription);
    setVerb(shell + "open", orElse(type.sOpenMenuText, "&Open"), path + " \"%1\"");
    if (type.bSupportPrint) setVerb(shell + "print", orElse(type.sPrintMenuText, "&Print"), path + " /p \"%1\"");
    if (type.bSupportInstall) {
        setVerb(shell + "add", orElse(type.sInstallMenuText, "&Install " + type.sAssociation), path + " /a \"%1\"");
    }
    if (type.bSupportNew) setVerb(shell + "new", orElse(type.sNewMenuText, "&New"), path + " /n \"%1\"");
    if (type.lDefaultIconIndex > -1) {
        setClassDefault(type.sClassName + "\\DefaultIcon", path + "," + std::to_string(type.lDefaultIconIndex));
    }
}

void cRegistry::CreateAdditionalEXEAssociations(const std::string& sClassName, const std::vector<std::string>& vItems) {
    if (vItems.size() % 3 != 0) return;
    SectionKey = sClassName;
    if (!KeyExists()) return;
    for (std::size_t i = 0; i < vItems.size(); i += 3) {
        ValueType = static_cast<std::int32_t>(valuetype::string);
        setVerb(sClassName + "\\shell\\" + vItems[i], vItems[i + 1], vItems[i + 2]);
    }
}

}  // namespace vrix
