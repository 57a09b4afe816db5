#pragma once

#include <QDialog>
#include <QStringListModel>

class QLineEdit;
class QListView;
class QTextBrowser;

namespace chengheng {

/// Help beside the work: contents at the left, a search above them, the page at the right.
/// Searching leaves only pages that hold the words and marks these on the page shown.
class HelpWindow final : public QDialog {
    Q_OBJECT

  public:
    explicit HelpWindow(QWidget* parent);

    void setVisible(bool visible) override;
    void showContext(int context);
    /// Makes the search ready to be typed into.
    void startSearch();
    /// Title of the page that is shown; empty when none is.
    QString shownTitle() const;

  private:
    void buildControls();
    void fillContents(const QString& wanted);
    void showRow(int row);
    void showPage(int page);
    void followLink(const QUrl& link);
    void markWords();

    QLineEdit* m_search = nullptr;
    QListView* m_contents = nullptr;
    QTextBrowser* m_page = nullptr;
    QStringListModel m_titles;
    QList<int> m_shownPages;  ///< position in helpPages() for each row of the contents
};

/// Opens the help page of a context beside a window, in the help window that the window has
/// already or in a new one. It can be used while the window is modal, and goes with it.
HelpWindow& showHelp(int context, QWidget& window);

}  // namespace chengheng
