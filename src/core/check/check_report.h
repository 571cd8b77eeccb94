#pragma once

#include "check/project_check.h"

#include <QByteArray>

namespace tarvo {

// "Demo.vnsc: error: event 'Victory', action 2 'Show message', argument
// 'Message': refers to message 7, which does not exist"
QString issueLine(const QString& fileName, const Project& project, const CheckIssue& issue);

// The issues as a JSON array of objects: file, severity, location and
// message as in the line, and the parts of the location on their own
// (event, timer, condition, action, argument, ...; positions from 1).
QByteArray issuesJson(
    const QString& fileName, const Project& project, const QList<CheckIssue>& issues);

} // namespace tarvo
