#include "hosts/ipc2581/diff/Differences.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <utility>

namespace ipc2581::host {
namespace {

std::vector<std::string> Lacking(const std::vector<std::string> & members, const std::vector<std::string> & other)
{
    std::vector<std::string> lacking;
    std::set_difference(members.begin(), members.end(), other.begin(), other.end(), std::back_inserter(lacking));
    return lacking;
}

// A name, and how many before had the same.
using Key = std::pair<std::string, std::size_t>;

std::vector<Key> Keys(const std::vector<Record> & records)
{
    std::map<std::string, std::size_t> counts;
    std::vector<Key> keys;
    keys.reserve(records.size());
    for (const Record & record : records) {
        keys.emplace_back(record.Name(), counts[record.Name()]++);
    }
    return keys;
}

std::map<Key, const Record *> Index(const std::vector<Record> & records)
{
    std::map<Key, const Record *> index;
    std::size_t place = 0;
    for (Key & key : Keys(records)) {
        index.emplace(std::move(key), &records[place++]);
    }
    return index;
}

}  // namespace

Record::Property & Record::Append(const char * name, std::vector<std::string> values)
{
    Property & property = m_properties.emplace_back();
    property.name = name;
    property.values = std::move(values);
    return property;
}

void Record::Add(const char * property, const Cell & value)
{
    Append(property, {value.Text()}).shown = value;
}

void Record::AddHidden(const char * property, std::string value)
{
    Append(property, {std::move(value)}).isHidden = true;
}

void Record::AddMembers(const char * property, std::vector<std::string> members)
{
    std::sort(members.begin(), members.end());
    Append(property, std::move(members)).isList = true;
}

void Record::AddHiddenMembers(const char * property, std::vector<std::string> members)
{
    AddMembers(property, std::move(members));
    m_properties.back().isHidden = true;
}

void Differences::Compare(const char * kind, const std::vector<Record> & before, const std::vector<Record> & after)
{
    const std::map<Key, const Record *> index = Index(after);
    const std::map<Key, const Record *> oldIndex = Index(before);
    for (const Key & key : Keys(before)) {
        const auto found = index.find(key);
        if (found == index.end()) {
            m_table.Add({kind, key.first, "removed", {}, {}, {}});
        }
        else {
            CompareProperties(kind, *oldIndex.at(key), *found->second);
        }
    }
    for (const Key & key : Keys(after)) {
        if (!oldIndex.contains(key)) {
            m_table.Add({kind, key.first, "added", {}, {}, {}});
        }
    }
}

void Differences::AddOf(const char * kind, const std::string & name, Whose whose, const std::string & property,
                        const Cell & value)
{
    const bool isBefore = whose == Whose::Before;
    m_table.Add(
        {kind, name, isBefore ? "removed" : "added", property, isBefore ? value : Cell(), isBefore ? Cell() : value});
}

void Differences::AddChanged(const char * kind, const std::string & name, const char * property, const Cell & before,
                             const Cell & after)
{
    m_table.Add({kind, name, "changed", property, before, after});
}

void Differences::AddRenamed(const char * kind, const std::string & name, const std::string & newName)
{
    m_table.Add({kind, name, "renamed", "name", name, newName});
}

void Differences::CompareProperties(const char * kind, const Record & before, const Record & after)
{
    for (std::size_t i = 0; i < before.m_properties.size(); ++i) {
        const Record::Property & old = before.m_properties[i];
        const Record::Property & now = after.m_properties[i];
        if (old.values == now.values) {
            continue;
        }
        std::vector<Cell> row = {kind, before.Name(), "changed", old.name};
        if (old.isList) {
            std::vector<std::string> gone = Lacking(old.values, now.values);
            std::vector<std::string> come = Lacking(now.values, old.values);
            row.push_back(old.isHidden ? Cell(gone.size()) : Cell(std::move(gone)));
            row.push_back(old.isHidden ? Cell(come.size()) : Cell(std::move(come)));
        }
        else {
            row.push_back(old.isHidden ? Cell() : old.shown);
            row.push_back(old.isHidden ? Cell() : now.shown);
        }
        m_table.Add(std::move(row));
    }
}

}  // namespace ipc2581::host
