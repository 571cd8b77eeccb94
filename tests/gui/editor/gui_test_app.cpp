#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace {

// Widgets need one application object for the whole test program.
class ApplicationEnvironment : public ::testing::Environment
{
public:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        // Windows store recent files and geometry when they close; a test that
        // does not pick its own folder must not write into the developer's.
        m_settings = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
        m_app = new QApplication(m_argc, m_argv);
    }
    void TearDown() override
    {
        delete m_app;
        m_app = nullptr;
        m_settings.reset();
    }

private:
    int m_argc = 1;
    char m_name[16] = "gui_tests";
    char* m_argv[2] = {m_name, nullptr};
    QApplication* m_app = nullptr;
    std::unique_ptr<QTemporaryDir> m_settings;
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

} // namespace
