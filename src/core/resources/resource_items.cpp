#include "resources/resource_items.h"

#include "base/checked.h"
#include "ui/prompter.h"

#include <algorithm>

namespace tarvo {

QString bareFileName(const QString& path)
{
    const qsizetype slash = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return path.mid(slash + 1);
}

int AddSound(Project& project, const QString& fullPath)
{
    const QString name = bareFileName(fullPath);
    if (name.isEmpty())
        return -1;
    SoundRecord sound;
    sound.firstText = name;
    sound.secondText = fullPath;
    sound.thirdText = name;
    sound.id = UpperSndID(project);
    const int position = project.soundCount;
    const qint16 count = raisedCount(project.soundCount, "sounds");
    growTo(project.sounds, count);
    project.sounds[position] = sound;
    project.soundCount = count;
    return position;
}

int AddMessage(Project& project, Prompter& prompter, const QString& text)
{
    if (text.isEmpty()) {
        prompter.beep();
        return -1;
    }
    MessageRecord message;
    message.id = UpperMsgID(project);
    message.text = text;
    const int position = project.messageCount;
    const qint16 count = raisedCount(project.messageCount, "messages");
    growTo(project.messages, count);
    project.messages[position] = message;
    project.messageCount = count;
    return position;
}

bool UpdateMessage(Project& project, Prompter& prompter, int position, const QString& text)
{
    if (position < 0 || position >= project.messageCount || text.isEmpty()) {
        prompter.beep();
        return false;
    }
    at(project.messages, position, "messages").text = text;
    return true;
}

} // namespace tarvo
