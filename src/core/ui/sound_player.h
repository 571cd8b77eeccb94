#pragma once

#include <QString>
#include <functional>
#include <utility>

namespace tarvo {

// Auditions wav files for the sounds dialog. Playing is asynchronous: play()
// returns at once and a new call replaces whatever is playing. A file that
// cannot be played is reported through the error handler (possibly later,
// once the file was tried), never by an exception.
class SoundPlayer
{
public:
    using ErrorHandler = std::function<void(const QString& path, const QString& reason)>;

    virtual ~SoundPlayer() = default;

    virtual void play(const QString& path) = 0;
    // Stops at once; harmless when nothing plays.
    virtual void stop() = 0;

    void setErrorHandler(ErrorHandler handler) { m_errorHandler = std::move(handler); }

protected:
    void reportError(const QString& path, const QString& reason) const
    {
        if (m_errorHandler)
            m_errorHandler(path, reason);
    }

private:
    ErrorHandler m_errorHandler;
};

} // namespace tarvo
