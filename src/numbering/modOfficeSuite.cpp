#include "numbering/modOfficeSuite.hpp"

#include "data/modFiles.hpp"
#include "platform/paths.hpp"
#include "platform/registry.hpp"
#include "screen/message.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"
#include "values/modFullWidth.hpp"

#include <algorithm>

namespace kestrel {

using platform::RegistryKey;

namespace {

const std::string userHive = "HKEY_CURRENT_USER\\";
const std::string suiteKey = userHive + "Software\\Microsoft\\Office\\";
const std::string programKey =
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE";
const std::string extensionsKey = userHive + "Software\\Microsoft\\Windows\\CurrentVersion\\Extensions";

// What a version wants beside the extension, and whether a place that can't be read is told.
enum class Wants { nothing, level, trustedPlace };
enum class BadPlace { silent, told };
struct Version {
    const char* folder;  // part of the program's folder; the first row that fits counts
    const char* version; // in the registry, which parts ways with the folder's at the end
    Wants wants;
    BadPlace badPlace = BadPlace::silent;
};
constexpr Version versions[] = {
    {"office9", "", Wants::nothing},
    {"office10", "", Wants::nothing},
    {"office11", "11.0", Wants::level},
    {"office12", "12.0", Wants::trustedPlace},
    {"office14", "14.0", Wants::trustedPlace, BadPlace::told},
    {"office15", "15.0", Wants::trustedPlace},
    {"office16", "16.0", Wants::trustedPlace},
    {"office17", "16.0", Wants::trustedPlace},
    {"office18", "17.0", Wants::trustedPlace},
};

const Version* versionOf(std::string_view accessPath) {
    const std::string lower = text::lowerAscii(accessPath);
    const auto found = std::find_if(std::begin(versions), std::end(versions),
                                    [&](const Version& row) { return text::contains(lower, row.folder); });
    return found == std::end(versions) ? nullptr : found;
}

void tellUnlessWritten(bool written) {
    if (!written) screen::message("書き込みできません。");
}

// Texts are read into 256 bytes with their closing NUL; a longer one can't be read.
std::optional<std::string> readText(const RegistryKey& key, std::string_view name) {
    constexpr std::size_t room = 256;
    std::optional<std::string> value = platform::queryRegistryText(key, name);
    return value && text::byteLength932(*value) < room ? value : std::nullopt;
}

bool setExtension(const std::string& accessPath) {
    RegistryKey key = platform::openRegistryKey(extensionsKey);
    if (!key) return false;
    const std::string program = accessPath + "MSACCESS.EXE";
    if (readText(key, "mdb").value_or("") != program) tellUnlessWritten(platform::setRegistryText(key, "mdb", program));
    platform::closeRegistryKey(key);
    return true;
}

bool setLevel(const Version& version, bool resultSoFar) {
    RegistryKey key = platform::createRegistryKey(suiteKey + version.version + "\\Access\\Security");
    if (!key) return resultSoFar;
    tellUnlessWritten(platform::setRegistryNumber(key, "Level", 1));
    platform::closeRegistryKey(key);
    return true;
}

// What a walk over the trusted places found. Names compare as texts: "Location10" stands before "Location9".
struct Places {
    std::string highest, lowest;
    std::string use; // the name of one that covers the folder
};

bool covers(const std::string& placeKey, const std::string& folder, const Version& version) {
    RegistryKey key = platform::openRegistryKey(placeKey);
    const std::optional<std::string> path = key ? readText(key, "Path") : std::nullopt;
    platform::closeRegistryKey(key);
    if (!path && version.badPlace == BadPlace::told) screen::message("オープンできません。");
    return path && text::contains(text::lowerAscii(*path), text::lowerAscii(folder + "\\"));
}

Places walkPlaces(const RegistryKey& places, const std::string& folder, const Version& version) {
    Places found;
    for (int index = 0; auto listed = platform::registrySubkey(places, index); ++index) {
        const std::string name = text::trim(*listed);
        found.highest = std::max(found.highest, name);
        if (index == 0 || name < found.lowest) found.lowest = name;
        if (covers(places.path + "\\" + name, folder, version)) found.use = name;
    }
    return found;
}

std::string numbered(long long number) {
    return "Location" + (number == 0 ? "" : std::to_string(number)); // a format that writes nothing for 0
}

// Below the lowest while there is room, else above the highest. A name that is there already is made over itself.
std::string newPlaceName(const Places& places) {
    constexpr std::size_t numberAt = 8;
    const auto numberOf = [](const std::string& name) {
        return text::leadingNumber(text::slice(name, numberAt, name.size()));
    };
    if (places.highest.empty()) return "Location0";
    const long long lowest = numberOf(places.lowest);
    return numbered(lowest > 0 ? lowest - 1 : numberOf(places.highest) + 1);
}

// Neither write is looked at: what counts is that the list of places could be closed, which never fails here.
void writePlace(RegistryKey& place, const std::string& folder) {
    platform::setRegistryText(place, "Path", folder + "\\");
    platform::setRegistryNumber(place, "AllowSubfolder", 1);
    platform::closeRegistryKey(place);
}

bool enterTrustedPlace(const Version& version, const std::string& folder, bool resultSoFar) {
    const std::string placesKey = suiteKey + version.version + "\\Access\\Security\\Trusted Locations";
    RegistryKey places = platform::openRegistryKey(placesKey);
    if (!places) places = platform::createRegistryKey(placesKey);
    if (!places) return resultSoFar;
    if (isNetworkPath(folder)) tellUnlessWritten(platform::setRegistryNumber(places, "AllowNetworkLocations", 1));
    const Places found = walkPlaces(places, folder, version);
    platform::closeRegistryKey(places);

    RegistryKey place = found.use.empty() ? platform::createRegistryKey(placesKey + "\\" + newPlaceName(found))
                                          : platform::openRegistryKey(placesKey + "\\" + found.use);
    if (!place) {
        screen::message("設定できません。");
        return resultSoFar;
    }
    writePlace(place, folder);
    return true;
}

bool prepare(const Version& version, const std::string& accessPath) {
    const bool extension = setExtension(accessPath);
    if (version.wants == Wants::level) return setLevel(version, extension);
    if (version.wants == Wants::trustedPlace)
        return enterTrustedPlace(version, installation.localReportFolder, extension);
    return extension;
}

} // namespace

bool registerAccessFolder() {
    RegistryKey program = platform::openRegistryKey(programKey);
    if (!program) return false;
    const std::optional<std::string> accessPath = readText(program, "Path");
    if (!accessPath) return false;
    const Version* version = versionOf(*accessPath);
    const bool result = version && prepare(*version, *accessPath);
    platform::closeRegistryKey(program);
    return result;
}

std::string browseForFolder(const std::string& prompt, const std::string& startFolder) {
    return screen::pickFolder({prompt, startFolder}).value_or(startFolder);
}

void openManual() {
    openWithShell(platform::joinPath(installation.manualFolder, toFullWidth(installation.programId) + ".doc"));
}

} // namespace kestrel
