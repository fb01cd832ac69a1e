#include "numbering/counters.hpp"

namespace kestrel {

namespace {

std::string equals(std::string_view table, std::string_view column, std::string_view value) {
    return std::string(table) + "." + std::string(column) + " = '" + std::string(value) + "'";
}

} // namespace

std::string registerText(std::string_view id) {
    return "SELECT A番号情報.* FROM A番号情報 WHERE " + equals("A番号情報", "番号ID", id);
}

Counter registerCounter(const NumberKey& key) {
    const std::string table = "A番号情報";
    const std::string row = equals(table, "番号ID", key.id);
    return {.table = table, .row = row, .peekedRow = row};
}

Counter dateCounter(const NumberKey& key) {
    const std::string table = "A期日別番号情報";
    const std::string row = equals(table, "番号ID", key.id) + " AND " + equals(table, "期日", key.baseDate);
    return {.table = table, .row = row, .peekedRow = row, .sourceText = registerText(key.id), .date = key.baseDate};
}

Counter officeCounter(const NumberKey& key) {
    const std::string table = "A事業所別番号情報";
    const std::string office = equals(table, "事業所コード", key.office);
    return {.table = table,
            .row = office + " AND " + equals(table, "番号ID", key.id),
            .peekedRow = office + " AND " + equals("A事業所別期日別番号情報", "番号ID", key.id) + " ",
            .sourceText = registerText(key.id),
            .office = key.office};
}

Counter officeDateCounter(const NumberKey& key) {
    const std::string table = "A事業所別期日別番号情報";
    const std::string row = equals(table, "事業所コード", key.office) + " AND " + equals(table, "番号ID", key.id) +
                            " AND " + equals(table, "期日", key.baseDate);
    return {.table = table,
            .row = row,
            .peekedRow = row,
            .sourceText = "SELECT A番号情報.* FROM A番号情報 WHERE " + equals("A事業所別番号情報", "番号ID", key.id),
            .office = key.office,
            .date = key.baseDate};
}

std::string selectText(const Counter& counter, const std::string& condition) {
    return "SELECT " + counter.table + ".* FROM " + counter.table + " WHERE " + condition;
}

std::string updateText(const Counter& counter, const std::string& number) {
    return "UPDATE " + counter.table + " SET  連番 = '" + number + "' WHERE " + counter.row;
}

std::string insertText(const Counter& counter, const std::string& id) {
    std::string columns = "[番号ID]", values = "'" + id + "'";
    if (counter.office) {
        columns = "[事業所コード]," + columns;
        values = "'" + *counter.office + "'," + values;
    }
    if (counter.date) {
        columns += ",[期日]";
        values += ",'" + *counter.date + "'";
    }
    return "INSERT INTO [" + counter.table + "] (" + columns + ",[連番],[履歴連番]) VALUES (" + values +
           ",'00000000','00000000')";
}

} // namespace kestrel
