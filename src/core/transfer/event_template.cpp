#include "transfer/event_template.h"

#include "base/file_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

namespace tarvo {

namespace {

const QRegularExpression& placeholderPattern()
{
    static const QRegularExpression pattern(QStringLiteral("\\{([A-Za-z_][A-Za-z0-9_ ]*)\\}"));
    return pattern;
}

void collectPlaceholders(const QJsonValue& value, QStringList& found)
{
    if (value.isString()) {
        auto matches = placeholderPattern().globalMatch(value.toString());
        while (matches.hasNext()) {
            const QString name = matches.next().captured(1);
            if (!found.contains(name))
                found.append(name);
        }
    } else if (value.isArray()) {
        for (const QJsonValue& item : value.toArray())
            collectPlaceholders(item, found);
    } else if (value.isObject()) {
        for (const QJsonValue& item : value.toObject())
            collectPlaceholders(item, found);
    }
}

QJsonValue filled(const QJsonValue& value, const QMap<QString, QString>& values)
{
    if (value.isString()) {
        QString text = value.toString();
        for (auto it = values.begin(); it != values.end(); ++it)
            text.replace(u'{' + it.key() + u'}', it.value());
        return text;
    }
    if (value.isArray()) {
        QJsonArray array;
        for (const QJsonValue& item : value.toArray())
            array.append(filled(item, values));
        return array;
    }
    if (value.isObject()) {
        QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            it.value() = filled(it.value(), values);
        return object;
    }
    return value;
}

} // namespace

QByteArray templateBytes(const EventClip& clip, const QString& description)
{
    QJsonObject root = QJsonDocument::fromJson(clipBytes(clip)).object();
    root[QLatin1String("description")] = description;
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

EventTemplate readTemplate(const QByteArray& bytes, const QString& path)
{
    readClip(bytes); // throws for a file that is no clip of ours
    const QJsonObject root = QJsonDocument::fromJson(bytes).object();
    EventTemplate result;
    result.path = path;
    result.name = QFileInfo(path).completeBaseName();
    result.description = root[QLatin1String("description")].toString();
    result.bytes = bytes;
    // Asked in the order the description names them (it is written to
    // explain them), then as they come in the events.
    collectPlaceholders(root[QLatin1String("description")], result.placeholders);
    // The format's own keys hold no texts of the author.
    QJsonObject texts = root;
    texts.remove(QLatin1String("format"));
    texts.remove(QLatin1String("description"));
    collectPlaceholders(texts, result.placeholders);
    return result;
}

QList<EventTemplate> listTemplates(const QStringList& folders, QStringList* skipped)
{
    QList<EventTemplate> templates;
    QSet<QString> names;
    for (const QString& folder : folders) {
        const QDir dir(folder);
        const QStringList files
            = dir.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name | QDir::IgnoreCase);
        for (const QString& file : files) {
            const QString path = dir.filePath(file);
            const QString name = QFileInfo(path).completeBaseName();
            if (names.contains(name.toLower()))
                continue;
            QFile in(path);
            try {
                if (!in.open(QIODevice::ReadOnly))
                    throw DataError(in.errorString());
                templates.append(readTemplate(in.readAll(), path));
                names.insert(name.toLower());
            } catch (const DataError&) {
                if (skipped)
                    skipped->append(
                        name + QStringLiteral(": not a file of events saved by this editor"));
            }
        }
    }
    return templates;
}

QString placeholderRefusal(const QString& value)
{
    if (value.isEmpty())
        return QStringLiteral("The value is empty.");
    if (value.contains(u'|'))
        return QStringLiteral("The value holds the character \"|\", which separates the fields "
                              "of a project file.");
    if (value.contains(u'\n') || value.contains(u'\r'))
        return QStringLiteral("The value holds a line break, which names cannot keep.");
    return {};
}

EventClip fillTemplate(const EventTemplate& eventTemplate, const QMap<QString, QString>& values)
{
    const QJsonObject root = QJsonDocument::fromJson(eventTemplate.bytes).object();
    QJsonObject result = filled(root, values).toObject();
    // The format's own keys stay as they are.
    result[QLatin1String("format")] = root[QLatin1String("format")];
    return readClip(QJsonDocument(result).toJson());
}

QString templateFileName(const QString& name)
{
    QString file = name.trimmed();
    static const QRegularExpression unsafe(QStringLiteral("[\\\\/:*?\"<>|\\x00-\\x1f]"));
    file.replace(unsafe, QStringLiteral("_"));
    return file + QStringLiteral(".json");
}

} // namespace tarvo
