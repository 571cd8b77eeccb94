#pragma once

#include <QString>

class QObject;

// What a user sees of a control, as text for a case's log: its caption or
// contents, and whether it is switched off, hidden or marked.
QString widgetState(const QObject* object);
