#ifndef IPC2581_CONTENT_PRIMITIVEROWS_H
#define IPC2581_CONTENT_PRIMITIVEROWS_H

#include "ipc2581/base/lines/AttributeScan.h"

// Attribute rows that only the dictionary primitives have.
namespace ipc2581::detail {

// The code of the shape word that the token holds; the value is not taken, and an unknown word leaves the field.
Attribute ShapeWord(Word word, int & shape);
// The same for the shapes that know "ROUND" and "SQUARE" alone.
Attribute RoundOrSquareWord(Word word, int & shape);
// 1 if the value holds "TURE". That is the word as the reader has it: "TRUE" sets nothing, and nothing clears a flag.
Attribute CornerFlag(Word word, int & flag);

}  // namespace ipc2581::detail

#endif
