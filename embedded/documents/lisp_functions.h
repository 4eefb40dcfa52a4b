// The host's own functions for package LISP. docs/lisp-host.md describes each of them.
#pragma once

#include "embedded/documents/command_line.h"
#include "embedded/documents/documents.h"
#include "embedded/documents/editor.h"
#include "platform/platform.h"

#include <map>

namespace drafta {

/// What the functions work on. All of it outlives the interpreters that they are defined in.
struct LispHost {
    ryv::Platform& platform;
    Documents& documents;
    CommandLine& commandLine;
    Editor& editor;
    ryv::CString profileFolder;
    std::function<void(ryv::CStringView)> printError;
    /// A failure of a drawing or project operation in words for people.
    std::function<ryv::CString(const ryv::CString& problem)> shown;
    /// The values that all documents share, by upper-case name; each as the chain of a list with one element.
    std::map<ryv::CString, ryv::HostResultBuffer> blackboard;
};

void defineDocumentFunctions(lisp::Interpreter& interpreter, LispHost& host);
void defineDrawingFunctions(lisp::Interpreter& interpreter, LispHost& host);
void defineQuestionFunctions(lisp::Interpreter& interpreter, LispHost& host);
void defineProjectFunctions(lisp::Interpreter& interpreter, LispHost& host);
void defineFileFunctions(lisp::Interpreter& interpreter, LispHost& host);

/// Prints a problem on the command line, as a line of its own, in words for people.
void printProblem(lisp::Interpreter& interpreter, const LispHost& host, const ryv::CString& problem);

} // namespace drafta
