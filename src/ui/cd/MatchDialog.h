#pragma once

#include <QDialog>
#include <cstddef>
#include <optional>
#include <vector>

#include "core/App.h"
#include "platform/DiscDatabase.h"

class QListWidget;

namespace zefta {

/// Lets the person choose among the entries of a database that fit a disc.
class MatchDialog : public QDialog {
    Q_OBJECT

  public:
    MatchDialog(const App& app, const std::vector<DatabaseMatch>& matches, QWidget* parent);

    /// Place of the chosen one.
    std::size_t Choice() const;

  private:
    QListWidget* lstMatches_;
};

/// Shows the dialog; nothing when the person wants none of them.
std::optional<std::size_t> ChooseMatch(const App& app, const std::vector<DatabaseMatch>& matches,
                                       QWidget* parent);

}  // namespace zefta
