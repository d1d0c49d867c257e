#include "shell/editing_toolbar_window.h"

#include <QTest>
#include <iostream>

#include "main_window_fixture.h"

namespace melvane::test {

class EditingToolbarTest : public MainWindowTest {
 protected:
    EditingToolbarTest() {
        floatingWindows.list(ToolWindows::Window::editing, "Form2", [this] {
            toolbar = new Form2(studio, engine.editing, &window);
            toolbar->useSettings(engine.settings);
            return toolbar;
        });
        floatingWindows.showWindow("Form2");
        QCoreApplication::processEvents();
    }
    Form2* toolbar = nullptr;
};

TEST_F(EditingToolbarTest, Dump) {
    for (QWidget* w = toolbar->nextInFocusChain(); w != toolbar; w = w->nextInFocusChain())
        std::cerr << w->objectName().toStdString() << ' ' << w->focusPolicy() << ' ' << w->isVisible() << '\n';
    std::cerr << "focus " << (toolbar->focusWidget() ? toolbar->focusWidget()->objectName().toStdString() : "-") << '\n';
}

}  // namespace melvane::test
