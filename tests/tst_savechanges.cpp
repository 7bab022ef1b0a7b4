// The one question about unsaved changes, asked by the window and the editors alike.

#include "dialogs/savechangesquestion.h"
#include "modalhelper.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QWidget>

#include <algorithm>

namespace {

// The buttons of a message box from left to right, by their standard kind.
QList<QMessageBox::StandardButton> buttonsLeftToRight(QMessageBox *box)
{
    QList<QAbstractButton *> buttons = box->buttons();
    std::sort(buttons.begin(), buttons.end(), [](QAbstractButton *a, QAbstractButton *b) {
        return a->mapToGlobal(QPoint(0, 0)).x() < b->mapToGlobal(QPoint(0, 0)).x();
    });
    QList<QMessageBox::StandardButton> kinds;
    for (QAbstractButton *button : buttons)
        kinds << box->standardButton(button);
    return kinds;
}

} // namespace

class TestSaveChanges : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void asksWithTheCaptionTheTextAndYesNoCancelInThatOrder()
    {
        QWidget parent;
        QList<QMessageBox::StandardButton> order;
        QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
        QWidget *boxParent = nullptr;
        auto seen = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
            [&](QWidget *w, ModalOutcome &) {
                auto *box = static_cast<QMessageBox *>(w);
                order = buttonsLeftToRight(box);
                defaultButton = box->standardButton(box->defaultButton());
                boxParent = box->parentWidget();
                box->button(QMessageBox::No)->click();
            });
        QCOMPARE(askSaveChanges(&parent, QStringLiteral("Quit ... ")), QMessageBox::No);
        QVERIFY2(seen->handled, qPrintable(seen->error));
        QCOMPARE(seen->className, QStringLiteral("QMessageBox"));
        QCOMPARE(seen->title, QStringLiteral("Quit ... "));
        QCOMPARE(seen->text,
                 QStringLiteral("You have modified the data!\nDo you want to save the changes ?"));
        QCOMPARE(order,
                 (QList<QMessageBox::StandardButton>{QMessageBox::Yes, QMessageBox::No,
                                                     QMessageBox::Cancel}));
        QCOMPARE(defaultButton, QMessageBox::Yes);
        QCOMPARE(boxParent, &parent);
    }

    void returnsTheButtonChosen_data()
    {
        QTest::addColumn<QMessageBox::StandardButton>("button");
        QTest::newRow("Yes") << QMessageBox::Yes;
        QTest::newRow("No") << QMessageBox::No;
        QTest::newRow("Cancel") << QMessageBox::Cancel;
    }

    void returnsTheButtonChosen()
    {
        QFETCH(QMessageBox::StandardButton, button);
        auto seen = ModalHelper::answerNextMessageBox(button);
        QCOMPARE(askSaveChanges(nullptr, QStringLiteral("New file ... ")), button);
        QVERIFY2(seen->handled, qPrintable(seen->error));
        QCOMPARE(seen->title, QStringLiteral("New file ... "));
    }

    void boxClosedWithoutAChoiceAnswersCancel()
    {
        auto seen = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
            [](QWidget *w, ModalOutcome &) { w->close(); });
        QCOMPARE(askSaveChanges(nullptr, QStringLiteral("Cancel")), QMessageBox::Cancel);
        QVERIFY2(seen->handled, qPrintable(seen->error));
    }

    void escapeAnswersCancel()
    {
        auto seen = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
            [](QWidget *w, ModalOutcome &) { QTest::keyClick(w, Qt::Key_Escape); });
        QCOMPARE(askSaveChanges(nullptr, QStringLiteral("Cancel")), QMessageBox::Cancel);
        QVERIFY2(seen->handled, qPrintable(seen->error));
    }
};

QTEST_MAIN(TestSaveChanges)
#include "tst_savechanges.moc"
