// The toolkit, ready for windows. One for the life of the process.
#pragma once

#include <memory>
#include <string>

class QApplication;

namespace kestrel::frontend {

class Application {
public:
    // The toolkit gets the program's name alone: every argument belongs to the program's own command line. Where no
    // display can be opened the process ends here, with one line on standard error and status 1.
    explicit Application(std::string program);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

private:
    std::string program_;
    char* arguments_[2];
    int count_ = 1;
    std::unique_ptr<QApplication> application_;
};

// Draws into memory instead of a display; before the Application is made.
void drawOffScreen();

} // namespace kestrel::frontend
