#include "session/modStart.hpp"

#include "company/modProfile.hpp"
#include "company/modRights.hpp"
#include "company/modSignIn.hpp"
#include "data/modConnections.hpp"
#include "data/modHistory.hpp"
#include "data/modLink.hpp"
#include "data/modUpkeep.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modRosterRecords.hpp"
#include "platform/clock.hpp"
#include "platform/instances.hpp"
#include "screen/ending.hpp"
#include "screen/focus.hpp"
#include "screen/frontend.hpp"
#include "screen/message.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"

#include <exception>

namespace kestrel {

namespace {

// Who the program is stays: it is settled before the run begins.
void beginRun(const std::string& commandLine) {
    const std::string programId = installation.programId;
    screen::resetScreens();
    resetSession();
    installation.programId = programId;
    installation.commandLine = commandLine;
    screen::setMessageTitle(programId);
}

void readScreenSize() {
    const auto size = frontend::screenSize();
    if (!size) return; // nothing in the program depends on it
    installation.screenWidthPixels = size->width;
    installation.screenHeightPixels = size->height;
}

void finishProgram() {
    closeProgram();
    platform::withdrawInstance();
    screen::endProcess(0);
}

void refuseStart(const char* words) {
    screen::message(words);
    finishProgram();
}

// An error that nobody caught: the run history keeps no end line, as for any run that dies.
void dieOf(const std::exception& error) {
    screen::message(error.what());
    connections = {};
    platform::withdrawInstance();
    screen::endProcess(1);
}

// The earliest that a request for this start can have been made.
std::string aMinuteAgo() {
    return platform::stampText(platform::secondsLater(platform::now(), -60));
}

void takeToday() {
    rosterSession.名簿日付 = platform::dateText(platform::now());
    rosterSession.名簿日付年 = text::slice(rosterSession.名簿日付, 0, 4);
    rosterSession.名簿日付月 = text::slice(rosterSession.名簿日付, 4, 2);
    rosterSession.名簿日付日 = text::slice(rosterSession.名簿日付, 6, 2);
    rosterSession.newEntry = true;
}

// A handed-down record by fixed positions, whatever the line holds: a short line fills what it reaches. The base date,
// not the roster date, is what a caller passes, because the key of a roster is made of office, base date and number.
void cutCommandLine(const std::string& line) {
    installation.sessionOffice = text::slice(line, 0, 3);
    rosterSession.番号基準日付 = text::slice(line, 3, 8);
    rosterSession.名簿No = text::slice(line, 11, 8);
    rosterSession.名簿宛先No = text::slice(line, 19, 6);
}

void takeHandoff() {
    rosterSession.linkStarted = false;
    rosterSession.newEntry = true;
    const std::string line = text::trim(installation.commandLine);
    if (line.empty()) return;
    cutCommandLine(line);
    const bool baseDateGiven = !text::trim(rosterSession.番号基準日付).empty();
    if (text::trim(installation.sessionOffice).empty() || !baseDateGiven || rosterSession.名簿No.empty()) return;
    rosterSession.linkStarted = true;
    if (!text::trim(rosterSession.名簿No).empty()) rosterSession.newEntry = false;
}

// A handoff is exempt from the single-instance rule, so that several records can be open at once; others still see it.
bool mayRunBesideOthers() {
    if (!rosterSession.linkStarted) return !platform::anotherInstanceRuns(installation.programRoot);
    platform::announceInstance(installation.programRoot);
    return true;
}

void start() {
    readScreenSize();
    makeEntryForm();
    if (!openProgram()) return refuseStart("データベースが使用できません。");
    if (!loadStartValues()) return refuseStart("ユーザ情報が使用できません。");
    registerLinkKeys(menuGroup, installation.programId);
    if (authorizeOperation(menuGroup, installation.programId, 0) != -1) return refuseStart("操作権限がありません。");
    takeHandoff();
    if (!mayRunBesideOthers()) return finishProgram();
    showEntryForm();
    giveFirstFocus();
}

bool mayLeaveInput() {
    if (!rosterSession.dirty || screen::question("入力がありました。\r終了しますか？")) return true;
    if (rosterSession.lastLeftField) screen::setFocus(*rosterSession.lastLeftField);
    return false;
}

} // namespace

void startProgram(const std::string& commandLine) {
    beginRun(commandLine);
    try {
        start();
    } catch (const std::exception& error) {
        dieOf(error);
    }
}

bool loadStartValues() {
    const bool read = loadCompanyProfile();
    takeToday();
    return read;
}

bool openProgram() {
    connections = {};
    try {
        if (!openSystemDatabases()) return false;
        writeRunStart();
        receiveLinkMessage(text::trim(installation.commandLine), aMinuteAgo());
        if (installation.programId == menuProgram) sweepLocalTables();
        return openMainDatabase();
    } catch (const std::exception&) {
        return false; // what a failing step could tell is in the run history or was shown
    }
}

void closeProgram() {
    if (!rosterSession.linkStartText.empty()) sendLinkAnswer(rosterSession.linkReplyText);
    writeRunEnd();
    connections.localConnection.close();
    connections.mainConnection.close();
    connections.localOpen = connections.mainOpen = false;
}

void newEntryScreen() {
    rosterSession.newEntry = true;
    rosterSession.dirty = false;
    clearEntry();
}

void loadLinkedEntry() {
    if (!readRosterHeader(installation.sessionOffice, rosterSession.番号基準日付, rosterSession.名簿No)) {
        clearRosterHeader();
        return newEntryScreen();
    }
    takeRosterHeader();
    if (readAddressee(rosterSession.名簿宛先No)) return takeAddressee();
    clearAddressee();
}

// A new entry may be left with an empty date or number, an existing record may not.
void requestExit() {
    if (screen::ended()) return;
    if (!rosterSession.newEntry && !checkRequiredFields()) return;
    if (mayLeaveInput()) finishProgram();
}

} // namespace kestrel
