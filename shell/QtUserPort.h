#pragma once
// The user port of the desktop program: message boxes, file dialogs and input boxes
// of Qt, titled "Morvane" unless the message has a title of its own.

#include <QPointer>
#include <QString>
#include <QWidget>

#include "core/UserPort.h"

namespace morvane {

inline constexpr const char* kApplicationTitle = "Morvane";

// "Description (*.ext)|*.ext|..." as Qt's "Description (*.ext);;...".
QString QtFileFilter(const std::string& filter);

class QtUserPort : public UserPort {
  public:
    // Dialogs open over the active window, or over the parent when none is active.
    explicit QtUserPort(QWidget* parent = nullptr) : parent_(parent) {}
    void setParent(QWidget* parent) { parent_ = parent; }

    Answer ask(const Message& message) override;
    std::optional<std::string> openFileName(const FileDialog& dialog) override;
    std::optional<std::string> saveFileName(const FileDialog& dialog) override;
    std::optional<std::string> inputBox(const InputRequest& request) override;

  private:
    QWidget* owner() const;
    QPointer<QWidget> parent_;
};

}  // namespace morvane
