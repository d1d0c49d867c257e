#pragma once
#include <istream>
#include <ostream>

#include "drive/bench.h"

namespace melvane::drive {

/// Runs a script, line by line, on the program and the world around it. One thread.
class Interpreter {
 public:
    Interpreter(ScriptedWorld& world, DriveHost& host, std::ostream& output);
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;
    ~Interpreter();

    /// Starts the program and runs the whole script. Answers the exit status: 0, or 2 when a command could
    /// not be understood or a wait could not end.
    int run(std::istream& script);

    static constexpr int failure = 2;

 private:
    void startProgram();
    void runLine(const std::string& line);
    /// Runs a command where its line stands or in a wait; `number` is that of its line in the script.
    void runCommand(int number, Words words);
    std::string schedule(std::int64_t milliseconds, Words command);
    void fail(int number, const std::string& why);
    /// Takes an ended program down, and makes it anew when that is wanted.
    void afterLine();

    Output output_;
    Bench bench_;
    Expansions expansions_;
    int number_ = 0;  ///< of the line whose command runs, from 1
    bool up_ = false;
};

}  // namespace melvane::drive
