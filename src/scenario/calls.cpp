#include "scenario/calls.hpp"

#include "calendar/modFiscalDates.hpp"
#include "company/modRights.hpp"
#include "company/pinCodec.hpp"
#include "data/modAttachmentFiles.hpp"
#include "data/modFiles.hpp"
#include "data/modUpkeep.hpp"
#include "numbering/modNumbers.hpp"
#include "numbering/modOfficeSuite.hpp"
#include "numbering/modViewLog.hpp"
#include "platform/identity.hpp"
#include "scenario/names.hpp"
#include "scenario/properties.hpp"
#include "scenario/report.hpp"
#include "scenario/scenario_error.hpp"
#include "session/rosterSession.hpp"
#include "values/modCondition.hpp"
#include "values/modFullWidth.hpp"
#include "values/modTabStop.hpp"
#include "values/modValues.hpp"

#include <algorithm>
#include <array>

namespace kestrel::scenario {

namespace {

struct Operation {
    std::string_view name;
    std::size_t arguments;
    std::string (*call)(const Arguments&); // gets the arguments alone
};

std::string normalizedDate(const Arguments& parts) {
    std::string year = parts[0], month = parts[1], day = parts[2];
    normalizeDateParts(year, month, day);
    return year + " | " + month + " | " + day;
}

std::string stopFrom(const Arguments& arguments) {
    rosterSession.lookupNextControl = &controlNamed(arguments[0]);
    nextTabStop();
    return rosterSession.lookupNextControl->name;
}

std::string madeFolders(const Arguments& arguments) {
    makeFolderPath(arguments[0]);
    return "";
}

std::string copiedAttachment(const Arguments& a) {
    copyAttachment(a[0], a[1], a[2]);
    return "";
}

std::string deletedAttachment(const Arguments& a) {
    deleteAttachment(a[0], a[1]);
    return "";
}

std::string swept(const Arguments&) {
    sweepLocalTables();
    return "";
}

std::string takenCondition(const Arguments& arguments) {
    std::string condition = arguments[1];
    const std::string value = takeConditionValue(arguments[0], condition);
    return value + " | " + condition;
}

std::string writtenView(const Arguments& a) {
    writeViewRecord(a[0], a[1], a[2], a[3], a[4]);
    return "";
}

constexpr std::array operations{
    Operation{"toFullWidth", 1, [](const Arguments& a) { return toFullWidth(a[0]); }},
    Operation{"takeConditionValue", 2, takenCondition},
    Operation{"fiscalYearStart", 1, [](const Arguments& a) { return fiscalYearStart(a[0]); }},
    Operation{"fiscalYearEnd", 1, [](const Arguments& a) { return fiscalYearEnd(a[0]); }},
    Operation{"closingMonthEnd", 1, [](const Arguments& a) { return closingMonthEnd(a[0]); }},
    Operation{"numberBaseDate", 2, [](const Arguments& a) { return numberBaseDate(a[0], a[1]); }},
    Operation{"peekNextNumber", 3, [](const Arguments& a) { return peekNextNumber(a[0], a[1], a[2]); }},
    Operation{"takeNextNumber", 3, [](const Arguments& a) { return takeNextNumber(a[0], a[1], a[2]); }},
    Operation{"writeViewRecord", 5, writtenView},
    Operation{"checkOperationRight", 3,
              [](const Arguments& a) { return yesNo(checkOperationRight(a[0], a[1], wholeArgument(a[2]))); }},
    Operation{"truncateToBytes", 2, [](const Arguments& a) { return truncateToBytes(a[0], wholeArgument(a[1])); }},
    Operation{"quoteSqlText", 1, [](const Arguments& a) { return quoteSqlText(a[0]); }},
    Operation{"formatToMask", 2, [](const Arguments& a) { return formatToMask(a[0], a[1]); }},
    Operation{"zeroString", 1, [](const Arguments& a) { return zeroString(wholeArgument(a[0])); }},
    Operation{"nineString", 1, [](const Arguments& a) { return nineString(wholeArgument(a[0])); }},
    Operation{"nextCode", 1, [](const Arguments& a) { return nextCode(a[0]); }},
    Operation{"digitsOnly", 1, [](const Arguments& a) { return digitsOnly(a[0]); }},
    Operation{"stripPercent", 1, [](const Arguments& a) { return stripPercent(a[0]); }},
    Operation{"normalizeTelephone", 1, [](const Arguments& a) { return normalizeTelephone(a[0]); }},
    Operation{"normalizeDateParts", 3, normalizedDate},
    Operation{"nextTabStop", 1, stopFrom},
    Operation{"makeFolderPath", 1, madeFolders},
    Operation{"copyFile", 2, [](const Arguments& a) { return yesNo(copyFile(a[0], a[1])); }},
    Operation{"copyFolder", 2, [](const Arguments& a) { return yesNo(copyFolder(a[0], a[1])); }},
    Operation{"deleteFolder", 1, [](const Arguments& a) { return yesNo(deleteFolder(a[0])); }},
    Operation{"fileBaseName", 1, [](const Arguments& a) { return fileBaseName(a[0]); }},
    Operation{"copyAttachment", 3, copiedAttachment},
    Operation{"deleteAttachment", 2, deletedAttachment},
    Operation{"openWithShell", 1, [](const Arguments& a) { return std::to_string(openWithShell(a[0])); }},
    Operation{"userNameText", 0, [](const Arguments&) { return platform::userName(); }},
    Operation{"computerNameText", 0, [](const Arguments&) { return platform::computerName(); }},
    Operation{"registerAccessFolder", 0, [](const Arguments&) { return yesNo(registerAccessFolder()); }},
    Operation{"sweepLocalTables", 0, swept},
    Operation{"windowsVersionClass", 0,
              [](const Arguments&) { return std::to_string(platform::windowsVersionClass()); }},
    Operation{"encode", 1, [](const Arguments& a) { return encode(a[0]); }},
    Operation{"decode", 1, [](const Arguments& a) { return decode(a[0]); }},
};

} // namespace

std::string resultOf(const Arguments& call) {
    const std::string& name = call.at(0);
    const auto found = std::find_if(operations.begin(), operations.end(),
                                    [&](const Operation& operation) { return operation.name == name; });
    if (found == operations.end()) throw ScenarioError("no operation " + name);
    if (call.size() - 1 != found->arguments)
        throw ScenarioError(name + " takes " + std::to_string(found->arguments) + " arguments");
    return found->call({call.begin() + 1, call.end()});
}

void callOperation(const Arguments& call) {
    writeLine(resultOf(call));
}

} // namespace kestrel::scenario
