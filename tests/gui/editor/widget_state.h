#pragma once

#include <QString>

class QObject;
class QWidget;

// What a user sees of a control, as text for a case's log: its caption or
// contents, and whether it is switched off, hidden or marked.
QString widgetState(const QObject* object);

// How a window or page arranges its controls: each item of its layouts with
// its cell or place, stretch and fixed minimum width, nested layouts
// indented. Font sizes play no part in it.
QString layoutState(const QWidget* widget);
