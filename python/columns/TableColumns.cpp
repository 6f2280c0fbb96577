#include "python/columns/TableColumns.h"

#include <vector>

#include "python/columns/ColumnValues.h"

namespace ipc2581::python {

pybind11::list ColumnsOf(const host::Table & table)
{
    std::vector<ColumnValues> columns(table.Columns().begin(), table.Columns().end());
    table.ForEachRow([&](const host::Row & row) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            columns[i].Add(row[i]);
        }
    });
    pybind11::list all;
    for (ColumnValues & column : columns) {
        all.append(column.Take());
    }
    return all;
}

}  // namespace ipc2581::python
