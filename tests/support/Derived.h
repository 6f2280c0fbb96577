#ifndef IPC2581_TESTS_SUPPORT_DERIVED_H
#define IPC2581_TESTS_SUPPORT_DERIVED_H

#include <string>
#include <utility>

#include "ipc2581/base/platform/CStdioFile.h"

// Classes that a host could derive from those of the model.
namespace ipc2581::tests {

// Its own operation stands behind all those of the class.
template <typename Model>
class Behind : public Model {
public:
    virtual void Next() {}
};

// Counts its own deletion.
template <typename Model>
class Counted : public Model {
public:
    explicit Counted(int & deleted) : m_deleted(deleted) {}
    Counted(const Counted &) = delete;
    Counted & operator=(const Counted &) = delete;
    ~Counted() override { ++m_deleted; }

private:
    int & m_deleted;
};

// Counts how many of it there are, clones among them.
template <typename Model>
class Alive : public Model {
public:
    Alive() { ++count; }
    Alive(const Alive & other) : Model(other) { ++count; }
    Alive & operator=(const Alive &) = delete;
    ~Alive() override { --count; }
    Alive * clone() const override { return new Alive(*this); }

    static inline int count = 0;
};

// Writes a word and its level, and gives a result of its own.
template <typename Model>
class Writing : public Model {
public:
    explicit Writing(std::string word, int result = 1) : m_word(std::move(word)), m_result(result) {}

    int Export(CStdioFile & file, int level) override
    {
        file.WriteString((m_word + " " + std::to_string(level) + "\n").c_str());
        return m_result;
    }

private:
    std::string m_word;
    int m_result;
};

// Writes nothing, and gives 0.
template <typename Model>
class Refusing : public Model {
public:
    int Export(CStdioFile & /*file*/, int /*level*/) override { return 0; }
};

// Writes something, and gives 0.
template <typename Model>
class Unwritable : public Model {
public:
    int Export(CStdioFile & file, int /*level*/) override
    {
        file.WriteString("unwritable\n");
        return 0;
    }
};

}  // namespace ipc2581::tests

#endif
