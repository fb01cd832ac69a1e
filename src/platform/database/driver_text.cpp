#include "platform/database/driver_text.hpp"

#include "platform/database/connection_text.hpp"
#include "platform/database/names.hpp"

#include <algorithm>
#include <array>
#include <filesystem>

namespace kestrel::database {

using platform::Failure;
using platform::Result;

namespace {

using Names = std::vector<std::string_view>;

// One driver: who asks for it, how it is called where it is installed, and its own words. An empty word: it has none.
struct Driver {
    std::string_view server;
    Names providers;
    Names installedAs; // the beginning decides
    std::string_view package;
    std::string_view host, socket, port, database; // "socket" for a host that is a folder
    std::string_view settings;                     // stand behind, as they are
    bool byBytes = false;                          // see DriverText
};

// Windows' names for drivers carry a release behind, which is left out here.
const Names sqlServerProviders{"SQL Server", "SQLOLEDB", "SQLNCLI", "MSOLEDBSQL"};

// Of psqlODBC's two forms the one that hands on bytes as they are, told that they are UTF-8: the other one turns each
// text twice, or looks the encoding up by its name for each. A statement that fails within a transaction takes only
// itself back; texts of any length are plain texts. A server that can't be reached any more (a cable, a sleeping
// machine) is given up after a minute; else the kernel would let a person wait for a quarter of an hour, or two.
constexpr std::string_view psqlSettings =
    "Protocol=7.4-2;UseServerSidePrepare=0;TextAsLongVarchar=0;MaxVarcharSize=8190;Fetch=1024;"
    "pqopt={tcp_user_timeout=60000 keepalives_idle=60 keepalives_interval=10 keepalives_count=3};";

// Of several drivers for one server the first that is installed counts.
const std::array drivers{
    Driver{"PostgreSQL",
           {"PostgreSQL", "PGNP"},
           {"PostgreSQL ANSI", "PostgreSQL"},
           "odbc-postgresql",
           "Servername",
           "Servername",
           "Port",
           "Database",
           psqlSettings,
           true},
    Driver{"SQL Server",
           sqlServerProviders,
           {"ODBC Driver "},
           "msodbcsql18, from the maker",
           "Server",
           "Server",
           "",
           "Database",
           "TrustServerCertificate=yes;"},
    Driver{"SQL Server",
           sqlServerProviders,
           {"FreeTDS"},
           "tdsodbc",
           "Server",
           "Server",
           "Port",
           "Database",
           "TDS_Version=7.4;ClientCharset=UTF-8;"},
    Driver{"Oracle",
           {"Oracle", "OraOLEDB", "MSDAORA"},
           {"Oracle"},
           "the ODBC package of the maker's Instant Client",
           "DBQ",
           "DBQ",
           "",
           "",
           ""},
    // Its UTF-16 calls take a character whose low byte is 0xD8 to 0xDB (U+52D9, for one) for half a pair, and cut
    // texts.
    Driver{"MariaDB",
           {"MariaDB", "MySQL"},
           {"MariaDB", "MySQL"},
           "odbc-mariadb",
           "SERVER",
           "SOCKET",
           "PORT",
           "DATABASE",
           "CHARSET=utf8mb4;FORWARDONLY=1;NO_CACHE=1;",
           true},
};

// Words that many drivers know, for one that is installed and has no row.
const Driver anyDriver{"", {}, {}, "", "Server", "Server", "Port", "Database", ""};

bool beginsWith(std::string_view text, std::string_view beginning) {
    return text.size() >= beginning.size() && sameName(text.substr(0, beginning.size()), beginning);
}

bool holdsBeginning(const Names& names, std::string_view text) {
    return std::ranges::any_of(names, [&](std::string_view name) { return beginsWith(text, name); });
}

std::string inBraces(std::string_view value) {
    std::string text = "{";
    for (char c : value) text.append(c == '}' ? 2 : 1, c);
    return text + "}";
}

// psqlODBC takes braces for a part of every value but the password's: they stand only where one would end early.
std::string pair(std::string_view word, std::string_view value) {
    if (word.empty() || value.empty()) return {};
    const bool plain = value.find(';') == value.npos && !value.starts_with('{');
    return std::string(word) + "=" + (plain ? std::string(value) : inBraces(value)) + ";";
}

// In a password that stands bare psqlODBC gives "%" and "+" a meaning.
std::string passwordPair(std::string_view value) {
    return value.empty() ? std::string() : "PWD=" + inBraces(value) + ";";
}

struct Place {
    std::string host, port, database;
};

bool isPort(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

bool isFolder(std::string_view path) {
    std::error_code ignored;
    return path.starts_with('/') && std::filesystem::is_directory(std::filesystem::path(path), ignored);
}

// HOST[:PORT][/DATABASE], the database only where it isn't named elsewhere.
Place placeOf(std::string_view source, std::string_view catalog) {
    Place place{{}, {}, std::string(catalog)};
    const auto slash = source.rfind('/');
    if (catalog.empty() && slash != source.npos && !isFolder(source)) {
        place.database = source.substr(slash + 1);
        source = source.substr(0, slash);
    }
    const auto sign = source.find_last_of(":,");
    const bool within = sign != source.npos && source.find(']', sign) != source.npos; // an address of version 6
    if (sign != source.npos && !within && isPort(source.substr(sign + 1))) {
        place.port = source.substr(sign + 1);
        source = source.substr(0, sign);
    }
    if (source.starts_with('[') && source.ends_with(']')) source = source.substr(1, source.size() - 2);
    place.host = source;
    return place;
}

std::string placeText(const Driver& driver, std::string_view source, std::string_view catalog) {
    if (driver.database.empty()) return pair(driver.host, source);
    Place place = placeOf(source, catalog);
    if (driver.port.empty() && !place.port.empty()) place.host += "," + place.port;
    const std::string_view host = place.host.starts_with('/') ? driver.socket : driver.host;
    return pair(host, place.host) + pair(driver.port, place.port) + pair(driver.database, place.database);
}

const std::string* installedName(const Driver& driver, const InstalledDrivers& installed) {
    for (std::string_view name : driver.installedAs) {
        const auto found =
            std::ranges::find_if(installed.drivers, [&](const std::string& each) { return beginsWith(each, name); });
        if (found != installed.drivers.end()) return &*found;
    }
    return nullptr;
}

const Driver& rowOfInstalled(std::string_view name) {
    const auto found =
        std::ranges::find_if(drivers, [&](const Driver& row) { return holdsBeginning(row.installedAs, name); });
    return found != drivers.end() ? *found : anyDriver;
}

struct Wanted {
    std::string head; // DRIVER=… or DSN=…
    const Driver* driver = nullptr;
};

Failure notInstalled(std::string_view provider) {
    std::string server, packages;
    for (const Driver& row : drivers) {
        if (!holdsBeginning(row.providers, provider)) continue;
        server = row.server;
        packages += (packages.empty() ? "" : " or ") + std::string(row.package);
    }
    return {1, "no ODBC driver for " + server + " is installed (package " + packages + ")"};
}

Result<Wanted> wantedDriver(std::string_view provider, const InstalledDrivers& installed) {
    for (const std::string& name : installed.drivers)
        if (sameName(name, provider)) return Wanted{"DRIVER=" + inBraces(name) + ";", &rowOfInstalled(name)};
    bool known = false;
    for (const Driver& row : drivers) {
        if (!holdsBeginning(row.providers, provider)) continue;
        known = true;
        if (const std::string* name = installedName(row, installed))
            return Wanted{"DRIVER=" + inBraces(*name) + ";", &row};
    }
    if (known) return notInstalled(provider);
    return Wanted{};
}

// A data source names its server and its driver itself; what is given besides goes over that.
Result<Wanted> wantedSource(std::string_view provider, std::string_view name, const InstalledDrivers& installed) {
    const auto found = std::ranges::find_if(
        installed.sources, [&](const InstalledDrivers::Source& source) { return sameName(source.name, name); });
    if (found != installed.sources.end()) return Wanted{pair("DSN", found->name), &rowOfInstalled(found->driver)};
    return Failure{1, "there is no ODBC driver \"" + std::string(provider) + "\" and no ODBC data source \"" +
                          std::string(name) + "\""};
}

} // namespace

Result<DriverText> driverText(std::string_view text, const InstalledDrivers& installed) {
    const std::string provider = connectionValue(text, "Provider"), source = connectionValue(text, "Data Source");
    const std::string catalog = connectionValue(text, "Initial Catalog");
    auto wanted = wantedDriver(provider, installed);
    if (!wanted) return wanted.failure();
    const bool bySource = !wanted.value().driver;
    if (bySource) wanted = wantedSource(provider, source, installed);
    if (!wanted) return wanted.failure();
    const Driver& driver = *wanted.value().driver;
    DriverText result{wanted.value().head, connectionValue(text, "Password"), driver.byBytes};
    result.text += bySource ? pair(driver.database, catalog) : placeText(driver, source, catalog);
    result.text += pair("UID", connectionValue(text, "User ID")) + passwordPair(result.password);
    result.text += driver.settings;
    return result;
}

} // namespace kestrel::database
