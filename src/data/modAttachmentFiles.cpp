#include "data/modAttachmentFiles.hpp"

#include "data/modFiles.hpp"
#include "entry/msgお待ち.hpp"
#include "platform/files.hpp"
#include "platform/paths.hpp"
#include "screen/frontend.hpp"
#include "screen/message.hpp"
#include "screen/window.hpp"
#include "session/companyValues.hpp"
#include "session/rosterSession.hpp"

#include <cerrno>
#include <cstring>

namespace kestrel {

namespace {

void enableMainScreen(bool enabled) {
    screen::setEnabled(*rosterSession.currentForm, enabled);
}

void showProgress(std::string_view words) {
    if (screen::Control* notice = screen::findControl(*rosterSession.currentForm, "お知らせ"))
        screen::setCaption(*notice, words);
    frontend::repaint();
}

std::string copyName(std::string_view key, std::string_view name) {
    return std::string(key) + "_" + std::string(name);
}

void report(const platform::Status& status) {
    if (!status) screen::message(status.failure().description);
}

// Nothing at the place is nothing to copy; a place that can't be looked at is a failure.
platform::Status copyPlainFile(std::string_view source, std::string_view key) {
    const auto entry = platform::entryAt(source);
    if (entry)
        copyFile(source, attachmentPath(key, nameInFolder(source)));
    else if (entry.failure().number != ENOENT && entry.failure().number != ENOTDIR)
        return entry.failure();
    return platform::done();
}

void copyWholeFolder(std::string_view source, const std::string& target) {
    const WaitDialog wait;
    copyFolder(source, target);
}

void deleteWholeFolder(const std::string& target) {
    const WaitDialog wait;
    deleteFolder(target);
}

// Begins with the name, whatever comes behind it.
platform::Status deleteFilesBeginningWith(std::string_view folder, std::string_view name) {
    const auto files = platform::filesIn(folder);
    if (!files) return files.failure();
    bool found = false;
    for (const std::string& file : files.value()) {
        if (!file.starts_with(name)) continue;
        found = true;
        if (auto removed = platform::removeFile(platform::joinPath(folder, file)); !removed) return removed;
    }
    return found ? platform::done() : platform::Status(platform::Failure{ENOENT, std::strerror(ENOENT)});
}

// A name that would lead out of the document folder names no copy: nothing outside of it is ever deleted.
platform::Status deleteCopy(const std::string& copy) {
    const std::string target = platform::joinPath(company.documentFolder, copy);
    if (platform::lastSeparator(copy) != std::string::npos) return platform::Failure{ENOENT, std::strerror(ENOENT)};
    if (!folderExists(target)) return deleteFilesBeginningWith(company.documentFolder + "/", copy);
    deleteWholeFolder(target);
    return platform::done();
}

} // namespace

std::string attachmentPath(std::string_view key, std::string_view name) {
    return platform::joinPath(company.documentFolder, copyName(key, name));
}

void copyAttachment(std::string_view source, std::string_view key, std::string_view ownName) {
    enableMainScreen(false);
    if (folderExists(source))
        copyWholeFolder(source, attachmentPath(key, ownName));
    else
        report(copyPlainFile(source, key));
    enableMainScreen(true);
}

void deleteAttachment(std::string_view name, std::string_view key) {
    enableMainScreen(false);
    showProgress("＊＊削除中です。しばらくお待ちください＊＊");
    report(deleteCopy(copyName(key, name)));
    showProgress("");
    enableMainScreen(true);
}

void openAttachment(std::string_view path, std::string_view key) {
    openWithShell(attachmentPath(key, nameInFolder(path)));
}

} // namespace kestrel
