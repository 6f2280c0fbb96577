#ifndef IPC2581_TESTS_IMPORT_FACTS_VALUES_H
#define IPC2581_TESTS_IMPORT_FACTS_VALUES_H

#include <string>
#include <string_view>

namespace ipc2581::facts {

// A number as XML has it, with blanks around it; 0 for a text that is none.
double NumberOf(std::string_view text);
// The same angle from 0 up to 360.
double Turn(double degrees);
// What a length in the one unit is in the other; 1 where one of the two is not known.
double UnitFactor(std::string_view from, std::string_view to);

// The words true and false.
std::string FlagWord(bool flag);
// U1.5, or the pin alone where nothing says of which component.
std::string PinWord(const std::string & component, const std::string & pin);

// The text without blanks around it.
std::string_view Trimmed(std::string_view text);

}  // namespace ipc2581::facts

#endif
