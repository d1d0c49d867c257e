#include "drive/interpreter.h"

#include <utility>

#include "drive/commands.h"

namespace melvane::drive {

namespace {

/// What is wrong with a command before it runs; empty when it may run.
std::string problemOf(Words words) {
    const std::string& name = words[0].text;
    if (words[0].isText) return "a command is not quoted";
    if (name.find('.') != std::string::npos) return {};
    const Command* command = findCommand(name);
    if (command == nullptr) return "there is no command " + name;
    const std::size_t count = words.size() - 1;
    if (count < command->least || count > command->most) return "written as: " + std::string(command->usage);
    return command->name == "at" ? problemOf(words.subspan(2)) : std::string();
}

}  // namespace

Interpreter::Interpreter(ScriptedWorld& world, DriveHost& host, std::ostream& output)
    : output_(output),
      bench_{world, host, output_,
             [this](std::int64_t milliseconds, Words command) { return schedule(milliseconds, command); },
             false},
      expansions_{{"$HERE", world.here.string()}, {"$PROGRAM", world.program.string()}} {
    world.time.onStuck = [this] { output_.fail("error: nothing can end this wait"); };
}

Interpreter::~Interpreter() { bench_.world.time.onStuck = nullptr; }

int Interpreter::run(std::istream& script) {
    startProgram();
    bench_.world.time.setToZero();
    bench_.world.port.log().setAllToZero();
    bench_.world.media.log().setAllToZero();
    int number = 0;
    for (std::string line; !output_.failed() && std::getline(script, line);) {
        number_ = ++number;
        runLine(line);
        afterLine();
    }
    return output_.failed() ? failure : 0;
}

void Interpreter::startProgram() {
    bench_.host.start();
    up_ = true;
}

void Interpreter::runLine(const std::string& line) {
    const std::size_t start = line.find_first_not_of(" \t\r");
    if (start == std::string::npos || line[start] == '#') return;
    const WordList list = splitWords(line, expansions_);
    if (!list.error.empty())
        fail(number_, list.error);
    else
        runCommand(number_, list.words);
}

void Interpreter::runCommand(int number, Words words) {
    const int outer = std::exchange(number_, number);
    std::string error = problemOf(words);
    const Command* command = error.empty() ? findCommand(words[0].text) : nullptr;
    const bool needsProgram = command == nullptr || command->needsProgram;
    if (error.empty() && needsProgram && !bench_.host.running()) error = "the program has ended";
    if (error.empty())
        error = command != nullptr ? command->run(bench_, words.subspan(1)) : callName(bench_, words);
    number_ = outer;
    if (!error.empty()) fail(number, error);
}

std::string Interpreter::schedule(std::int64_t milliseconds, Words command) {
    bench_.world.time.at(milliseconds,
                         [this, number = number_, words = std::vector<Word>(command.begin(), command.end())] {
                             if (!output_.failed()) runCommand(number, words);
                         });
    return {};
}

void Interpreter::fail(int number, const std::string& why) {
    output_.fail("error: " + std::to_string(number) + ": " + why);
    bench_.world.time.end();
}

void Interpreter::afterLine() {
    if (output_.failed()) return;
    if (up_) bench_.host.settle();
    if (up_ && (!bench_.host.running() || bench_.restartWanted)) {
        bench_.host.finish();
        bench_.world.time.restart();
        bench_.world.port.forgetHandles();
        bench_.world.media.forgetDevices();
        up_ = false;
    }
    if (std::exchange(bench_.restartWanted, false)) startProgram();
}

}  // namespace melvane::drive
