// The folder in which a monkey may do what it likes, and dialogs that keep it there.
#pragma once

#include <QObject>
#include <QTemporaryDir>
#include <memory>
#include <random>

#include "app/dialogs.h"

namespace corvane::monkey {

using Generator = std::mt19937_64;

// A number from 0 to below count, which is at least 1.
std::size_t Pick(Generator& random, std::size_t count);

// Also the filter that keeps what the toolkit's own dialogs offer inside the folder.
class Playground final : public QObject {
  public:
    explicit Playground(Generator& random);

    QString Folder() const { return folder_.path() + "/"; }
    // A file of the folder or a name that no file has, sound or damaged.
    QString AnyFile();

    // The real dialogs, except that a path outside the folder becomes one inside.
    std::unique_ptr<app::Dialogs> MakeDialogs(QWidget& window);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void WriteFiles();

    Generator& random_;
    QTemporaryDir folder_;
};

}  // namespace corvane::monkey
