// From a connection text of the suite to the one that an ODBC driver understands.
#pragma once

#include "platform/result.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::database {

// What is installed on this machine.
struct InstalledDrivers {
    std::vector<std::string> drivers; // their names
    struct Source {
        std::string name;
        std::string driver; // the name or file of the driver behind it
    };
    std::vector<Source> sources;
};

struct DriverText {
    std::string text; // holds the password
    std::string password;
    bool byBytes = false; // the driver is given and gives UTF-8; else UTF-16
};

// text: "Provider=…;User ID=…;Password=…;Data Source=…;[Initial Catalog=…;]".
// The provider is one of the names that Windows programs call a server's driver by, a server's own name ("PostgreSQL",
// "SQL Server", "Oracle", "MariaDB"), or the name of an installed ODBC driver. With any other one the Data Source is
// the name of an ODBC data source. Data Source: HOST, HOST:PORT or HOST,PORT; a host that begins with "/" is the folder
// of a socket. Where no Initial Catalog is given, the database stands behind the last "/": HOST:PORT/DATABASE (a socket
// folder that is there names none; the server then takes the user's own). Oracle's Data Source goes to its driver as it
// stands. Fails when the driver isn't installed; the failure names the package.
platform::Result<DriverText> driverText(std::string_view text, const InstalledDrivers& installed);

} // namespace kestrel::database
