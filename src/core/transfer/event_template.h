#pragma once

#include "transfer/event_clip.h"

#include <QMap>
#include <QStringList>

namespace tarvo {

// Templates: events kept in a file to be inserted into any project. A
// template file is a clip as the clipboard holds it (event_clip.h) with one
// key more, "description". Texts in it may hold placeholders, a name in
// braces such as "{base}", each asked for once when the template is inserted.

struct EventTemplate
{
    QString name; // the file's name without ".json"
    QString description;
    QString path;
    QStringList placeholders; // as the description names them, then the events
    QByteArray bytes; // the file as read
};

// The bytes of a template file for `clip`.
QByteArray templateBytes(const EventClip& clip, const QString& description);

// A template from the bytes of its file; a text that is no clip of ours is a
// DataError, as a paste of it would be.
EventTemplate readTemplate(const QByteArray& bytes, const QString& path);

// The templates of the folders, in the order the folders are given (the
// author's own first), each sorted by name; a name a former folder has hides
// the same name in a later one. Files that cannot be read are left out and
// named in `skipped` ("name: reason").
QList<EventTemplate> listTemplates(const QStringList& folders, QStringList* skipped = nullptr);

// The reason a placeholder's value cannot stand in a project's texts ("|",
// a line break, an empty value); empty when it can.
QString placeholderRefusal(const QString& value);

// The template's clip with every placeholder replaced by its value (names,
// comments, messages and typed arguments alike).
EventClip fillTemplate(const EventTemplate& eventTemplate, const QMap<QString, QString>& values);

// A file name for a template named `name`: characters a file name cannot
// hold on any system are replaced by "_".
QString templateFileName(const QString& name);

} // namespace tarvo
