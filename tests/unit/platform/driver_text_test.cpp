#include "platform/database/driver_text.hpp"

#include <gtest/gtest.h>

namespace kestrel::test {

using database::driverText;
using database::InstalledDrivers;

namespace {

const InstalledDrivers everything{{"PostgreSQL ANSI", "PostgreSQL Unicode", "FreeTDS", "ODBC Driver 18 for SQL Server",
                                   "Oracle 21 ODBC driver", "MariaDB Unicode", "Some Driver"},
                                  {{"office", "PostgreSQL Unicode"}, {"other", "libother.so"}}};

std::string textOf(const std::string& text, const InstalledDrivers& installed = everything) {
    auto made = driverText(text, installed);
    return made ? made.value().text : "failed: " + made.failure().description;
}

bool begins(const std::string& text, const std::string& beginning) {
    return text.rfind(beginning, 0) == 0;
}

struct Case {
    const char* name;
    std::string given, expected; // the beginning
};

const Case cases[] = {
    {"catalog of its own", "Provider=PostgreSQL;User ID=u;Password=p;Data Source=db1:5433;Initial Catalog=k;",
     "DRIVER={PostgreSQL ANSI};Servername=db1;Port=5433;Database=k;UID=u;PWD={p};Protocol"},
    {"database behind the host", "Provider=PostgreSQL;User ID=u;Password=;Data Source=db1/k;",
     "DRIVER={PostgreSQL ANSI};Servername=db1;Database=k;UID=u;Protocol"},
    {"socket folder, port and database", "Provider=PostgreSQL;Data Source=/run/nowhere:5433/k;",
     "DRIVER={PostgreSQL ANSI};Servername=/run/nowhere;Port=5433;Database=k;Protocol"},
    {"socket folder alone", "Provider=PostgreSQL;Data Source=/tmp;",
     "DRIVER={PostgreSQL ANSI};Servername=/tmp;Protocol"},
    {"socket folder and catalog", "Provider=PostgreSQL;Data Source=/run/nowhere;Initial Catalog=k;",
     "DRIVER={PostgreSQL ANSI};Servername=/run/nowhere;Database=k;Protocol"},
    {"address of version 6", "Provider=PostgreSQL;Data Source=[::1]:5433/k;",
     "DRIVER={PostgreSQL ANSI};Servername=::1;Port=5433;Database=k;"},
    {"address of version 6 without port", "Provider=PostgreSQL;Data Source=[fe80::1];Initial Catalog=k;",
     "DRIVER={PostgreSQL ANSI};Servername=fe80::1;Database=k;"},
    {"password with marks", "Provider=PostgreSQL;Password='a;b}c d';Data Source=h/k;",
     "DRIVER={PostgreSQL ANSI};Servername=h;Database=k;PWD={a;b}}c d};Protocol"},
    {"names with marks", "Provider=PostgreSQL;User ID=a b@c;Password=a+b%41;Data Source=h/営業 {1};",
     "DRIVER={PostgreSQL ANSI};Servername=h;Database=営業 {1};UID=a b@c;PWD={a+b%41};Protocol"},
    {"provider's letter case and release", "provider=sqloledb.1;Data Source=h;Initial Catalog=k;User ID=sa;",
     "DRIVER={ODBC Driver 18 for SQL Server};Server=h;Database=k;UID=sa;Trust"},
    {"port of the maker's driver", "Provider=MSOLEDBSQL19;Data Source=h,1433;Initial Catalog=k;",
     "DRIVER={ODBC Driver 18 for SQL Server};Server=h,1433;Database=k;Trust"},
    {"named instance", "Provider=SQLNCLI11;Data Source=h\\i;Initial Catalog=k;",
     "DRIVER={ODBC Driver 18 for SQL Server};Server=h\\i;Database=k;Trust"},
    {"Oracle's own place", "Provider=OraOLEDB.Oracle;User ID=u;Password=p;Data Source=h:1521/s;",
     "DRIVER={Oracle 21 ODBC driver};DBQ=h:1521/s;UID=u;PWD={p};"},
    {"MariaDB's socket", "Provider=MariaDB;User ID=u;Data Source=/run/nowhere.sock;Initial Catalog=k;",
     "DRIVER={MariaDB Unicode};SOCKET=/run/nowhere.sock;DATABASE=k;UID=u;CHARSET"},
    {"an installed driver's name", "Provider=PostgreSQL Unicode;Data Source=h/k;",
     "DRIVER={PostgreSQL Unicode};Servername=h;Database=k;Protocol"},
    {"another one's name", "Provider=some driver;User ID=u;Data Source=h:9;Initial Catalog=k;",
     "DRIVER={Some Driver};Server=h;Port=9;Database=k;UID=u;"},
    {"a data source", "Provider=MSDASQL;User ID=u;Password=p;Data Source=Office;Initial Catalog=k;",
     "DSN=office;Database=k;UID=u;PWD={p};Protocol"},
    {"a data source of an unknown driver", "Provider=;User ID=u;Data Source=other;", "DSN=other;UID=u;"},
};

TEST(DriverText, saysTheSameInTheDriversWords) {
    for (const Case& each : cases)
        EXPECT_TRUE(begins(textOf(each.given), each.expected)) << each.name << ": " << textOf(each.given);
}

TEST(DriverText, knowsWhichDriversAreSpokenToInUtf8) {
    EXPECT_TRUE(driverText("Provider=MariaDB;Data Source=h/k;", everything).value().byBytes);
    EXPECT_TRUE(driverText("Provider=mariadb unicode;Data Source=h/k;", everything).value().byBytes);
    EXPECT_TRUE(driverText("Provider=PostgreSQL;Data Source=h/k;", everything).value().byBytes);
    EXPECT_FALSE(driverText("Provider=SQL Server;Data Source=h;", everything).value().byBytes);
}

TEST(DriverText, takesTheDriverThatIsThere) {
    EXPECT_TRUE(begins(textOf("Provider=SQLOLEDB;Data Source=h:1433;Initial Catalog=k;", {{"FreeTDS"}, {}}),
                       "DRIVER={FreeTDS};Server=h;Port=1433;Database=k;TDS_Version"));
}

TEST(DriverText, namesThePackageOfADriverThatIsMissing) {
    EXPECT_EQ(textOf("Provider=PostgreSQL;Password=geheim;Data Source=h/k;", {}),
              "failed: no ODBC driver for PostgreSQL is installed (package odbc-postgresql)");
    EXPECT_EQ(textOf("Provider=SQLOLEDB;Data Source=h;", {}),
              "failed: no ODBC driver for SQL Server is installed (package msodbcsql18, from the maker or tdsodbc)");
    EXPECT_EQ(textOf("Provider=Nobody.1;Password=geheim;Data Source=nowhere;"),
              "failed: there is no ODBC driver \"Nobody.1\" and no ODBC data source \"nowhere\"");
}

} // namespace
} // namespace kestrel::test
