#pragma once
// "-" as input or output file of a command: the stream passes through a file of the process's own, so that
// readers and writers meet nothing but files.

#include <string>

namespace tarvek {

class StandardStreams {
  public:
    StandardStreams() = default;
    ~StandardStreams();
    StandardStreams(const StandardStreams&) = delete;
    StandardStreams& operator=(const StandardStreams&) = delete;

    // True for the argument that stands for a stream.
    static bool IsStream(const std::string& argument) { return argument == "-"; }

    // The path to read from: a copy of standard input for "-", else the argument itself.
    std::string Input(const std::string& argument);
    // The path to write to: a file that Deliver() copies to standard output for "-", else the argument
    // itself.
    std::string Output(const std::string& argument);
    // Copies what was written for "-" to standard output.
    void Deliver() const;

  private:
    std::string FileInOwnFolder(const std::string& name);

    std::string folder_;
    std::string output_;
};

}  // namespace tarvek
