#include "base/file_size_signal.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <csignal>
#endif

namespace tarvo {

void ignoreFileSizeSignal()
{
#ifdef Q_OS_UNIX
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

} // namespace tarvo
