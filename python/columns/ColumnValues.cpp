#include "python/columns/ColumnValues.h"

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <utility>
#include <variant>

#include <pybind11/numpy.h>

#include "python/objects/Raise.h"

namespace ipc2581::python {
namespace {

namespace py = pybind11;

constexpr double Unknown = std::numeric_limits<double>::quiet_NaN();

template <typename... Tests>
struct Overloaded : Tests... {
    using Tests::operator()...;
};
// Deduced by the language itself, which clang 14 does not know yet.
template <typename... Tests>
Overloaded(Tests...) -> Overloaded<Tests...>;

// Columns that are of these kinds on every board, also on one that has nothing in them.
bool IsFlagColumn(const std::string & key)
{
    constexpr std::array<std::string_view, 7> keys = {"plate",  "test_point", "clockwise", "fitted",
                                                      "mirror", "via",        "test"};
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

// The array is a view of the vector, which goes with it.
template <typename Shown, typename Value>
py::array ArrayOf(std::vector<Value> && values)
{
    static_assert(sizeof(Shown) == sizeof(Value));
    auto kept = std::make_unique<std::vector<Value>>(std::move(values));
    const std::vector<Value> & own = *kept;
    const py::capsule owner(kept.get(), [](void * any) { delete static_cast<std::vector<Value> *>(any); });
    static_cast<void>(kept.release());
    return py::array(py::dtype::of<Shown>(), {own.size()}, {sizeof(Value)}, own.data(), owner);
}

py::list TextsOf(const std::vector<std::string> & texts)
{
    py::list all(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        all[i] = FromBytes(texts[i]);
    }
    return all;
}

}  // namespace

ColumnValues::ColumnValues(const host::Column & column)
    : m_key(column.key),
      m_kind(Kind::Nothing),
      m_kindOfNothing(column.isLength            ? Kind::Number
                      : IsFlagColumn(column.key) ? Kind::Flag
                                                 : Kind::Text)
{
}

void ColumnValues::Become(Kind kind)
{
    m_kind = kind;
    const std::size_t before = m_count;
    m_count = 0;
    for (std::size_t i = 0; i < before; ++i) {
        AddNothing();
    }
}

void ColumnValues::NumbersFromIntegers()
{
    m_numbers.assign(m_integers.begin(), m_integers.end());
    m_integers.clear();
    m_kind = Kind::Number;
}

void ColumnValues::AddNothing()
{
    if (m_kind == Kind::Integer) {
        NumbersFromIntegers();
    }
    switch (m_kind) {
    case Kind::Number:
        m_numbers.push_back(Unknown);
        break;
    case Kind::Flag:
        m_flags.push_back(0);
        m_gaps.push_back(1);
        break;
    case Kind::Text:
        m_places.push_back(-1);
        break;
    case Kind::List:
        m_lists.emplace_back();
        break;
    case Kind::Nothing:
    case Kind::Integer:
        break;
    }
    ++m_count;
}

void ColumnValues::AddNumber(double number)
{
    if (m_kind == Kind::Nothing) {
        Become(Kind::Number);
    }
    if (m_kind == Kind::Integer) {
        NumbersFromIntegers();
    }
    m_numbers.push_back(number);
    ++m_count;
}

void ColumnValues::AddInteger(std::int64_t number)
{
    if (m_kind == Kind::Nothing) {
        Become(m_count == 0 ? Kind::Integer : Kind::Number);
    }
    if (m_kind == Kind::Number) {
        return AddNumber(static_cast<double>(number));
    }
    m_integers.push_back(number);
    ++m_count;
}

void ColumnValues::AddFlag(bool flag)
{
    if (m_kind == Kind::Nothing) {
        Become(Kind::Flag);
    }
    m_flags.push_back(flag ? 1 : 0);
    m_gaps.push_back(0);
    ++m_count;
}

void ColumnValues::AddText(const std::string & text)
{
    if (m_kind == Kind::Nothing) {
        Become(Kind::Text);
    }
    ++m_count;
    // What stands in a file side by side is mostly of one layer and one net.
    if (!m_places.empty() && m_places.back() != -1 && m_texts[static_cast<std::size_t>(m_places.back())] == text) {
        m_places.push_back(m_places.back());
        return;
    }
    const auto [place, isNew] = m_placeOfText.try_emplace(text, static_cast<std::int32_t>(m_texts.size()));
    if (isNew) {
        m_texts.push_back(text);
    }
    m_places.push_back(place->second);
}

void ColumnValues::AddList(const std::vector<std::string> & texts)
{
    if (m_kind == Kind::Nothing) {
        Become(Kind::List);
    }
    m_lists.push_back(texts);
    ++m_count;
}

void ColumnValues::Add(const host::Cell & cell)
{
    if (cell.IsNothing()) {
        return AddNothing();
    }
    std::visit(Overloaded{[&](std::monostate) { AddNothing(); }, [&](const std::string & text) { AddText(text); },
                          [&](std::int64_t number) { AddInteger(number); }, [&](double number) { AddNumber(number); },
                          [&](bool flag) { AddFlag(flag); },
                          [&](const std::vector<std::string> & texts) { AddList(texts); },
                          [&](const host::FirstNumbers &) { AddNothing(); },
                          [&](const host::NumberText & text) { AddNumber(text.number.value_or(Unknown)); }},
               cell.Held());
}

py::tuple ColumnValues::Take()
{
    if (m_kind == Kind::Nothing) {
        Become(m_kindOfNothing);
    }
    switch (m_kind) {
    case Kind::Number:
        return py::make_tuple(m_key, "number", ArrayOf<double>(std::move(m_numbers)), py::none());
    case Kind::Integer:
        return py::make_tuple(m_key, "integer", ArrayOf<std::int64_t>(std::move(m_integers)), py::none());
    case Kind::Flag:
        return py::make_tuple(m_key, "flag", ArrayOf<bool>(std::move(m_flags)), ArrayOf<bool>(std::move(m_gaps)));
    case Kind::Nothing:
    case Kind::Text:
        return py::make_tuple(m_key, "text", ArrayOf<std::int32_t>(std::move(m_places)), TextsOf(m_texts));
    case Kind::List:
        break;
    }
    py::list lists;
    for (const std::vector<std::string> & texts : m_lists) {
        lists.append(TextsOf(texts));
    }
    return py::make_tuple(m_key, "list", lists, py::none());
}

}  // namespace ipc2581::python
