#include "hosts/ipc2581/listings/NaturalOrder.h"

#include <cstddef>

namespace ipc2581::host {
namespace {

bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

// Takes a number without the zeros in front of it, or a single other character, off the text.
std::string_view TakePart(std::string_view & text)
{
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count])) {
        ++count;
    }
    std::string_view part = text.substr(0, count == 0 ? 1 : count);
    text.remove_prefix(part.size());
    while (part.size() > 1 && part.front() == '0') {
        part.remove_prefix(1);
    }
    return part;
}

int ComparePart(std::string_view left, std::string_view right)
{
    const bool areNumbers = IsDigit(left.front()) && IsDigit(right.front());
    if (areNumbers && left.size() != right.size()) {
        return left.size() < right.size() ? -1 : 1;
    }
    return left.compare(right);
}

}  // namespace

bool NaturalLess(std::string_view left, std::string_view right)
{
    std::string_view leftRest = left;
    std::string_view rightRest = right;
    while (!leftRest.empty() && !rightRest.empty()) {
        const std::string_view leftPart = TakePart(leftRest);
        const int order = ComparePart(leftPart, TakePart(rightRest));
        if (order != 0) {
            return order < 0;
        }
    }
    if (leftRest.empty() != rightRest.empty()) {
        return leftRest.empty();
    }
    return left < right;
}

}  // namespace ipc2581::host
