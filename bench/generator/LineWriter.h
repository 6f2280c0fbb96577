#ifndef IPC2581_BENCH_GENERATOR_LINEWRITER_H
#define IPC2581_BENCH_GENERATOR_LINEWRITER_H

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace ipc2581::bench {

// Writes elements one a line, three blanks deeper for each open element.
//
//     lines.Tag("Pad").Text("pin", "U1.1").Open();
//     lines.Tag("Location").Fixed("x", 1500000).Fixed("y", 0).Close("/>");
//     lines.End("Pad");
class LineWriter {
public:
    // The stream is the caller's; what is still held is written by the destructor.
    explicit LineWriter(std::ostream & out);
    ~LineWriter();
    LineWriter(const LineWriter &) = delete;
    LineWriter & operator=(const LineWriter &) = delete;

    void Line(std::string_view text);
    LineWriter & Tag(std::string_view name);
    LineWriter & Text(std::string_view attribute, std::string_view value);
    LineWriter & Whole(std::string_view attribute, std::int64_t value);
    // A number of millionths, with six decimals.
    LineWriter & Fixed(std::string_view attribute, std::int64_t millionths);
    void Open();
    // The end of an element without content, "/>" or " />".
    void Close(std::string_view end);
    void End(std::string_view name);
    // <name>body</name>
    void Body(std::string_view name, std::string_view body);

    std::uint64_t Written() const { return m_flushed + m_buffer.size(); }

private:
    void Indent();
    void Number(std::int64_t value);
    void EndLine();

    std::ostream & m_out;
    std::string m_buffer;
    std::uint64_t m_flushed = 0;
    std::size_t m_depth = 0;
};

}  // namespace ipc2581::bench

#endif
