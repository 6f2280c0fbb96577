#include "bench/generator/LineWriter.h"

#include <charconv>

namespace ipc2581::bench {

namespace {

constexpr std::size_t FlushSize = std::size_t{1} << 16;

}  // namespace

LineWriter::LineWriter(std::ostream & out) : m_out(out) {}

LineWriter::~LineWriter()
{
    m_out.write(m_buffer.data(), static_cast<std::streamsize>(m_buffer.size()));
}

void LineWriter::Line(std::string_view text)
{
    Indent();
    m_buffer += text;
    EndLine();
}

LineWriter & LineWriter::Tag(std::string_view name)
{
    Indent();
    m_buffer += '<';
    m_buffer += name;
    return *this;
}

LineWriter & LineWriter::Text(std::string_view attribute, std::string_view value)
{
    m_buffer += ' ';
    m_buffer += attribute;
    m_buffer += "=\"";
    m_buffer += value;
    m_buffer += '"';
    return *this;
}

LineWriter & LineWriter::Whole(std::string_view attribute, std::int64_t value)
{
    m_buffer += ' ';
    m_buffer += attribute;
    m_buffer += "=\"";
    Number(value);
    m_buffer += '"';
    return *this;
}

LineWriter & LineWriter::Fixed(std::string_view attribute, std::int64_t millionths)
{
    m_buffer += ' ';
    m_buffer += attribute;
    m_buffer += "=\"";
    if (millionths < 0) {
        m_buffer += '-';
        millionths = -millionths;
    }
    Number(millionths / 1000000);
    m_buffer += '.';
    for (std::int64_t place = 100000; place > 0; place /= 10) {
        m_buffer += static_cast<char>('0' + millionths / place % 10);
    }
    m_buffer += '"';
    return *this;
}

void LineWriter::Open()
{
    m_buffer += '>';
    EndLine();
    ++m_depth;
}

void LineWriter::Close(std::string_view end)
{
    m_buffer += end;
    EndLine();
}

void LineWriter::End(std::string_view name)
{
    --m_depth;
    Indent();
    m_buffer += "</";
    m_buffer += name;
    m_buffer += '>';
    EndLine();
}

void LineWriter::Body(std::string_view name, std::string_view body)
{
    Tag(name);
    m_buffer += '>';
    m_buffer += body;
    m_buffer += "</";
    m_buffer += name;
    m_buffer += '>';
    EndLine();
}

void LineWriter::Indent()
{
    m_buffer.append(m_depth * 3, ' ');
}

void LineWriter::Number(std::int64_t value)
{
    char digits[20];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    m_buffer.append(digits, result.ptr);
}

void LineWriter::EndLine()
{
    m_buffer += '\n';
    if (m_buffer.size() >= FlushSize) {
        m_out.write(m_buffer.data(), static_cast<std::streamsize>(m_buffer.size()));
        m_flushed += m_buffer.size();
        m_buffer.clear();
    }
}

}  // namespace ipc2581::bench
