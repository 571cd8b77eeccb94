#include <QApplication>
#include <gtest/gtest.h>

namespace {

// Widgets need one application object for the whole test program.
class ApplicationEnvironment : public ::testing::Environment
{
public:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        m_app = new QApplication(m_argc, m_argv);
    }
    void TearDown() override
    {
        delete m_app;
        m_app = nullptr;
    }

private:
    int m_argc = 1;
    char m_name[16] = "gui_tests";
    char* m_argv[2] = {m_name, nullptr};
    QApplication* m_app = nullptr;
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

} // namespace
