#ifndef IPC2581_HOSTS_IPC2581_CHECK_CAUSES_H
#define IPC2581_HOSTS_IPC2581_CHECK_CAUSES_H

#include <cstddef>
#include <string>

namespace ipc2581::host {

// What a listing or a picture is known to lack, cause by cause.
class Causes {
public:
    explicit Causes(bool isAbsenceTold = true) : m_isAbsenceTold(isAbsenceTold) {}

    // Things in the plural, of which the model has fewer than the file.
    void AddMissing(const std::string & things, std::size_t inFile, std::size_t inModel);
    // The same, for things that a file may lack altogether, which is told too where that is asked for.
    void AddMissingOrNone(const std::string & things, std::size_t inFile, std::size_t inModel);
    // Of a thing in the singular: what becomes of so many of them, and for what cause.
    void AddOtherwise(std::size_t count, const std::string & thing, const std::string & how, const std::string & cause);

    // With a separator between the causes; empty if there are none.
    [[nodiscard]] const std::string & Text() const { return m_text; }
    // False if all there is to tell is what a file has none of.
    [[nodiscard]] bool IsLacking() const { return m_isLacking; }

private:
    void Add(const std::string & cause);

    bool m_isAbsenceTold;
    std::string m_text;
    bool m_isLacking = false;
};

}  // namespace ipc2581::host

#endif
