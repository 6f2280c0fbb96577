#ifndef IPC2581_BASE_READOBSERVER_H
#define IPC2581_BASE_READOBSERVER_H

#include <string_view>

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"

namespace ipc2581 {

// What would end a read with CInvalidArgException.
enum class ReadStop {
    BlankLine,  // a line of blanks alone
    EmptyLine,  // an empty line among those of Content
    OpenValue,  // a value that its line does not close
};

// Watches a reader take a file line by line: CIPC2581_XmlLiteReader::SetObserver. Lines and tokens are gone after the
// call; words stay. Any call but LoopEnds may throw, which ends the read; but a CInvalidArgException of AttributeTaken
// counts as a stop. An observer must outlive the reads that it watches.
class IPC2581_API ReadObserver {
public:
    ReadObserver() = default;
    ReadObserver(const ReadObserver &) = delete;
    ReadObserver & operator=(const ReadObserver &) = delete;
    virtual ~ReadObserver();

    // A loop over lines begins, for the element whose test has hit last, or for the whole file; and it ends, whether
    // at its end test, at the end of the file or by an exception. A LoopBegins that throws gets no LoopEnds.
    virtual void LoopBegins() {}
    virtual void LoopEnds() {}
    // The running loop takes a line, as it stands in the file.
    virtual void LineTaken(std::string_view /*line*/) {}
    // A test of the loop hits the line: it holds the word. One that begins with "/" is an end test. A line that has
    // none of these calls has been passed over.
    virtual void TestHit(std::string_view /*word*/) {}
    // The test that hit is of a kind that passes the line over.
    virtual void LineSkipped(std::string_view /*word*/) {}
    // The token is taken for the attribute with this word of a table, and its value, which may use further tokens, is
    // read.
    virtual void AttributeTaken(std::string_view /*word*/, Reading /*reading*/, std::string_view /*token*/) {}
    // The read is about to stop. True lets it pass over the rest of the line and go on; then what the line has given so
    // far stays as it is.
    virtual bool PassOver(ReadStop /*stop*/) { return false; }
};

}  // namespace ipc2581

#endif
