#ifndef IPC2581_PYTHON_COLUMNS_COLUMNVALUES_H
#define IPC2581_PYTHON_COLUMNS_COLUMNVALUES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include <pybind11/pybind11.h>

#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::python {

// One column of a listing, cell by cell.
class ColumnValues {
public:
    explicit ColumnValues(const host::Column & column);

    void Add(const host::Cell & cell);
    // The column as ColumnsOf gives it. Nothing of it is left here.
    pybind11::tuple Take();

private:
    // What the cells have been so far.
    enum class Kind { Nothing, Number, Integer, Flag, Text, List };

    void Become(Kind kind);
    void AddNothing();
    void AddNumber(double number);
    void AddInteger(std::int64_t number);
    void AddFlag(bool flag);
    void AddText(const std::string & text);
    void AddList(const std::vector<std::string> & texts);
    void NumbersFromIntegers();

    std::string m_key;
    Kind m_kind;
    Kind m_kindOfNothing;
    std::size_t m_count = 0;
    std::vector<double> m_numbers;
    std::vector<std::int64_t> m_integers;
    std::vector<std::uint8_t> m_flags;
    std::vector<std::uint8_t> m_gaps;
    std::vector<std::int32_t> m_places;
    std::vector<std::string> m_texts;
    std::unordered_map<std::string, std::int32_t> m_placeOfText;
    std::vector<std::vector<std::string>> m_lists;
};

}  // namespace ipc2581::python

#endif
