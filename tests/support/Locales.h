#ifndef IPC2581_TESTS_SUPPORT_LOCALES_H
#define IPC2581_TESTS_SUPPORT_LOCALES_H

#include <clocale>
#include <string>

#include <locale.h>

namespace ipc2581::tests {

// What C prints and reads on this thread while it lives is that of the C locale, whatever the process has: the truth
// that numbers are compared with.
#if defined(_WIN32)
class PlainLocale {
public:
    PlainLocale() : m_kind(_configthreadlocale(_ENABLE_PER_THREAD_LOCALE)), m_before(std::setlocale(LC_ALL, nullptr))
    {
        std::setlocale(LC_ALL, "C");
    }
    PlainLocale(const PlainLocale &) = delete;
    PlainLocale & operator=(const PlainLocale &) = delete;
    ~PlainLocale()
    {
        std::setlocale(LC_ALL, m_before.c_str());
        _configthreadlocale(m_kind);
    }

private:
    int m_kind;
    std::string m_before;
};
#else
class PlainLocale {
public:
    PlainLocale() : m_plain(newlocale(LC_ALL_MASK, "C", nullptr)), m_before(uselocale(m_plain)) {}
    PlainLocale(const PlainLocale &) = delete;
    PlainLocale & operator=(const PlainLocale &) = delete;
    ~PlainLocale()
    {
        uselocale(m_before);
        freelocale(m_plain);
    }

private:
    locale_t m_plain;
    locale_t m_before;
};
#endif

// Sets a German locale of C for the time of a test, if the system has one.
class GermanLocale {
public:
    GermanLocale() : m_before(std::setlocale(LC_ALL, nullptr))
    {
        for (const char * name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "de_DE.ISO-8859-1", "de_AT.UTF-8", "German"}) {
            if (std::setlocale(LC_ALL, name) != nullptr && *std::localeconv()->decimal_point == ',') {
                m_set = true;
                return;
            }
        }
    }
    ~GermanLocale() { std::setlocale(LC_ALL, m_before.c_str()); }
    GermanLocale(const GermanLocale &) = delete;
    GermanLocale & operator=(const GermanLocale &) = delete;

    [[nodiscard]] bool IsSet() const { return m_set; }

private:
    std::string m_before;
    bool m_set = false;
};

}  // namespace ipc2581::tests

#endif
