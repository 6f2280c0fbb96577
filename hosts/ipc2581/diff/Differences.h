#ifndef IPC2581_HOSTS_IPC2581_DIFF_DIFFERENCES_H
#define IPC2581_HOSTS_IPC2581_DIFF_DIFFERENCES_H

#include <string>
#include <vector>

#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// Something with a name, and what can differ in it.
class Record {
public:
    explicit Record(std::string name) : m_name(std::move(name)) {}

    // A value that a difference shows.
    void Add(const char * property, const Cell & value);
    // A value too long to be shown: a difference only says that there is one.
    void AddHidden(const char * property, std::string value);
    // Members without an order. A difference shows those that the other one lacks.
    void AddMembers(const char * property, std::vector<std::string> members);
    // Members too long to be shown: a difference says how many of them the other one lacks.
    void AddHiddenMembers(const char * property, std::vector<std::string> members);

    [[nodiscard]] const std::string & Name() const { return m_name; }

private:
    friend class Differences;

    struct Property {
        const char * name = "";
        bool isHidden = false;
        bool isList = false;
        std::vector<std::string> values;  // one, or the members in order
        Cell shown = {};                  // of one
    };

    Property & Append(const char * name, std::vector<std::string> values);

    std::string m_name;
    std::vector<Property> m_properties;
};

enum class Whose { Before, After };

// What differs between two states of the same things, as rows of a table.
class Differences {
public:
    // The columns of the two states.
    explicit Differences(const Column & before = "before", const Column & after = "after")
        : m_table("differences", {"kind", "name", "change", "property", before, after})
    {
    }

    // Records are the same by their name; of several with one name, the first goes with the first. All of a kind have
    // the same properties.
    void Compare(const char * kind, const std::vector<Record> & before, const std::vector<Record> & after);

    // What only one of the states has.
    void AddOf(const char * kind, const std::string & name, Whose whose, const std::string & property,
               const Cell & value);
    void AddChanged(const char * kind, const std::string & name, const char * property, const Cell & before,
                    const Cell & after);
    void AddRenamed(const char * kind, const std::string & name, const std::string & newName);

    [[nodiscard]] const Table & Rows() const { return m_table; }

private:
    void CompareProperties(const char * kind, const Record & before, const Record & after);

    Table m_table;
};

}  // namespace ipc2581::host

#endif
