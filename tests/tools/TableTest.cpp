#include "tools/Table.h"

#include <gtest/gtest.h>

#include <sstream>

namespace qrtVistrelClasses4 {

TEST(Table, ColumnsAreAsWideAsTheirWidestCellInCharacters) {
    Table table({{"No.", Table::Align::right}, {"Name"}, {"Text"}});
    table.addRow({"1", "Caf\u00e9", "open"});
    table.addRow({"1000", "Bar", ""});
    std::ostringstream out;
    out << table;
    EXPECT_EQ(out.str(), " No.  Name  Text\n"
                         "----  ----  ----\n"
                         "   1  Caf\u00e9  open\n"
                         "1000  Bar\n");
}

} // namespace qrtVistrelClasses4
