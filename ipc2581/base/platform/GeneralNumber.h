#ifndef IPC2581_BASE_PLATFORM_GENERALNUMBER_H
#define IPC2581_BASE_PLATFORM_GENERALNUMBER_H

namespace ipc2581::detail {

// A number as strtod takes it in the C locale, without blanks and a sign in front, exact for all of them: exponents,
// many digits, hexadecimal digits, "inf" and "nan". False if there is no number at all.
bool ParseGeneral(const char * at, const char * end, double & value);

}  // namespace ipc2581::detail

#endif
