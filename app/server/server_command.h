#pragma once

#include <QString>

// A command that an editor sends the server, read from its text:
//   [Open "<file>"]  [IsOpen "<file>"]  [Get <pid> "<file>"]  [Close "<file>"]
// The name runs from the first quote to the quote in front of the closing
// bracket. Editors do not escape quotes inside it, and none need be: a
// quote within the name is part of it.
struct ServerCommand
{
    enum Verb { Open, IsOpen, Get, Close };
    Verb verb = Open;
    qint64 pid = 0; // Get only: the process that took the file
    QString file;   // or, for Open, an extension alone such as ".CfgXML"
};

// False for any other text: an unknown verb, a missing or empty name, a
// process id that is not 1 to 2147483647 written in decimal digits.
bool parseServerCommand(const QString &text, ServerCommand *command);
