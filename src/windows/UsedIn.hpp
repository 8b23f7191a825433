#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "dictionary/DictionaryEntry.hpp"

class QTableWidget;
class QLabel;

namespace karvel {

class Desktop;

/// "Usato in ...": the dictionary's entries that contain a sign.
class UsedIn : public QDialog {
    Q_OBJECT

  public:
    UsedIn(Desktop& desktop, QWidget* parent);

    /// Lists the entries with the sign `code`, in file order.
    void show(const std::string& code);

  private:
    void list(const std::vector<DictionaryEntry>& entries);

    Desktop& desktop_;
    QLabel* heading_;
    QTableWidget* table_;
};

}  // namespace karvel
