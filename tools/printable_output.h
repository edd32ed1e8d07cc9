// What standard output and standard error show people, fit for a terminal.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>

namespace brushworks::tools {

/// Stands in front of a stream while it lives: whatever names and values come along, lines reach
/// the stream as host::printable() makes them. What programs read goes around it.
class PrintableOutput : private std::streambuf {
  public:
    explicit PrintableOutput(std::ostream& stream);
    ~PrintableOutput() override;
    PrintableOutput(const PrintableOutput&) = delete;
    PrintableOutput& operator=(const PrintableOutput&) = delete;

  private:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize count) override;
    int sync() override;
    bool putOut(const std::string& text);

    std::ostream& m_stream;
    std::streambuf* m_pTarget;
    std::string m_sLine;  ///< the beginning of a line, kept so that its characters are whole
};

}  // namespace brushworks::tools
