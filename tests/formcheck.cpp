#include "formcheck.h"

#include "widgetreaders.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QComboBox>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QMetaEnum>
#include <QMetaMethod>
#include <QPixmap>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

#include <memory>
#include <vector>

namespace FormCheck {

QString shownText(const QWidget *widget)
{
    if (widget->isWindow())
        return widget->windowTitle();
    if (auto *box = qobject_cast<const QComboBox *>(widget))
        return WidgetReaders::comboTexts(box).join(u'|');
    if (auto *list = qobject_cast<const QTreeView *>(widget))
        return WidgetReaders::headerTexts(list).join(u'|');
    if (auto *table = qobject_cast<const QTableWidget *>(widget))
        return WidgetReaders::tableHeaderTexts(table).join(u'|');
    // A tab page stands in the tab widget's stack.
    const QWidget *stack = widget->parentWidget();
    if (auto *tabs = qobject_cast<const QTabWidget *>(stack ? stack->parentWidget() : nullptr)) {
        const int index = tabs->indexOf(const_cast<QWidget *>(widget));
        if (index >= 0)
            return tabs->tabText(index);
    }
    // Buttons, labels, line edits and spin boxes show a text, group boxes a title.
    for (const char *property : {"text", "title"}) {
        const QVariant value = widget->property(property);
        if (value.isValid())
            return value.toString();
    }
    return QString();
}

bool showsPicture(const QIcon &icon, const QPixmap &expected)
{
    return !expected.isNull() && !icon.isNull()
        && icon.pixmap(expected.size()).toImage().convertToFormat(QImage::Format_ARGB32)
        == expected.toImage().convertToFormat(QImage::Format_ARGB32);
}

namespace {

void addOutline(const QLayout *layout, int depth, QStringList &lines)
{
    const QString indent(2 * depth, u' ');
    const QMargins m = layout->contentsMargins();
    const QString margins = m.left() == m.top() && m.top() == m.right() && m.right() == m.bottom()
        ? QString::number(m.left())
        : QStringLiteral("%1 %2 %3 %4").arg(m.left()).arg(m.top()).arg(m.right()).arg(m.bottom());
    lines << indent
            + QStringLiteral("%1 margins %2 spacing %3")
                  .arg(QLatin1String(layout->metaObject()->className()), margins)
                  .arg(layout->spacing());
    const auto *box = qobject_cast<const QBoxLayout *>(layout);
    const bool across = box
        && (box->direction() == QBoxLayout::LeftToRight
            || box->direction() == QBoxLayout::RightToLeft);
    const QMetaEnum policies = QMetaEnum::fromType<QSizePolicy::Policy>();
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (const QLayout *inner = item->layout()) {
            addOutline(inner, depth + 1, lines);
        } else if (const QWidget *widget = item->widget()) {
            lines << indent + QStringLiteral("  ") + widget->objectName();
        } else if (QSpacerItem *spacer = item->spacerItem()) {
            const QSizePolicy policy = spacer->sizePolicy();
            const QSize hint = spacer->sizeHint();
            lines << indent
                    + QStringLiteral("  spacer %1x%2 %3")
                          .arg(hint.width())
                          .arg(hint.height())
                          .arg(QLatin1String(policies.valueToKey(
                              across ? policy.horizontalPolicy() : policy.verticalPolicy())));
        }
    }
}

QIcon pictureOf(const QWidget *widget)
{
    if (auto *button = qobject_cast<const QAbstractButton *>(widget))
        return button->icon();
    if (auto *label = qobject_cast<const QLabel *>(widget))
        return QIcon(label->pixmap());
    return QIcon();
}

// "OkButton toolTip: text": a failing comparison names the widget and the field.
QString labelled(const QString &name, const char *field, const QString &value)
{
    return name + u' ' + QLatin1String(field) + QStringLiteral(": ") + value;
}

// Empty values for the arguments of a slot: pointers null, everything else as its type
// makes it by default.
class DefaultArguments
{
public:
    explicit DefaultArguments(const QMetaMethod &method)
    {
        for (int i = 0; i < method.parameterCount(); ++i) {
            const QByteArray type = method.parameterTypeName(i);
            names.push_back(type);
            if (type.endsWith('*')) {
                pointers.push_back(std::make_unique<void *>(nullptr));
                data.push_back(pointers.back().get());
                types.push_back(QMetaType());
            } else {
                const QMetaType metaType = QMetaType::fromName(type);
                types.push_back(metaType);
                data.push_back(metaType.isValid() ? metaType.create() : nullptr);
            }
        }
    }
    ~DefaultArguments()
    {
        for (size_t i = 0; i < data.size(); ++i)
            if (types[i].isValid())
                types[i].destroy(data[i]);
    }
    DefaultArguments(const DefaultArguments &) = delete;
    DefaultArguments &operator=(const DefaultArguments &) = delete;

    // The first argument that cannot be made, or an empty text.
    QByteArray missing() const
    {
        for (size_t i = 0; i < data.size(); ++i)
            if (!data[i])
                return names[i];
        return QByteArray();
    }
    QGenericArgument at(size_t i) const
    {
        return i < data.size() ? QGenericArgument(names[i].constData(), data[i])
                               : QGenericArgument(nullptr);
    }

private:
    std::vector<QByteArray> names;
    std::vector<QMetaType> types;
    std::vector<void *> data;
    std::vector<std::unique_ptr<void *>> pointers;
};

} // namespace

QStringList childWidgets(const QWidget *form)
{
    QStringList list;
    for (QWidget *w : form->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (w->objectName().isEmpty() || w->isWindow())
            continue;
        list << w->objectName() + QLatin1Char(':')
                + QString::fromLatin1(w->metaObject()->className());
    }
    return list;
}

QStringList layoutOutline(const QLayout *layout)
{
    QStringList lines;
    if (layout)
        addOutline(layout, 0, lines);
    return lines;
}

void checkWidgets(const QWidget *form, const WidgetRow *rows, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const WidgetRow &row = rows[i];
        const QString name = QString::fromUtf8(row.objectName);
        const QWidget *widget = form->objectName() == name ? form
                                                           : form->findChild<const QWidget *>(name);
        QVERIFY2(widget, qPrintable(QStringLiteral("no widget named ") + name));
        QCOMPARE(labelled(name, "class", QString::fromLatin1(widget->metaObject()->className())),
                 labelled(name, "class", QString::fromLatin1(row.className)));
        if (row.text) {
            const QString text = widget == form ? form->windowTitle() : shownText(widget);
            QCOMPARE(labelled(name, "text", text),
                     labelled(name, "text", QString::fromUtf8(row.text)));
        }
        if (row.toolTip)
            QCOMPARE(labelled(name, "toolTip", widget->toolTip()),
                     labelled(name, "toolTip", QString::fromUtf8(row.toolTip)));
        if (row.whatsThis)
            QCOMPARE(labelled(name, "whatsThis", widget->whatsThis()),
                     labelled(name, "whatsThis", QString::fromUtf8(row.whatsThis)));
        if (row.picture) {
            const QPixmap expected(QString::fromUtf8(row.picture));
            QVERIFY2(!expected.isNull(), row.picture);
            QVERIFY2(showsPicture(pictureOf(widget), expected),
                     qPrintable(labelled(name, "picture", QString::fromUtf8(row.picture))));
        }
    }
}

void checkStubs(QObject *form, const QMetaObject &formClass, const StubRow *rows, std::size_t count)
{
    // The form class's own slots, in their declared order, against the rows.
    QStringList declared;
    for (int i = formClass.methodOffset(); i < formClass.methodCount(); ++i) {
        const QMetaMethod method = formClass.method(i);
        if (method.methodType() == QMetaMethod::Slot)
            declared << QString::fromLatin1(method.methodSignature());
    }
    QStringList listed;
    for (std::size_t i = 0; i < count; ++i)
        listed << QString::fromLatin1(QMetaObject::normalizedSignature(rows[i].slot));
    QCOMPARE(listed, declared);

    for (std::size_t i = 0; i < count; ++i) {
        const StubRow &row = rows[i];
        const int index = formClass.indexOfSlot(QMetaObject::normalizedSignature(row.slot));
        const QMetaMethod method = formClass.method(index);
        const DefaultArguments args(method);
        QVERIFY2(
            args.missing().isEmpty(),
            qPrintable(QStringLiteral("%1: no empty value of %2")
                           .arg(QLatin1String(row.slot), QString::fromLatin1(args.missing()))));
        QTest::ignoreMessage(QtWarningMsg, row.warning);
        QVERIFY2(method.invoke(form, Qt::DirectConnection, args.at(0), args.at(1), args.at(2),
                               args.at(3), args.at(4), args.at(5), args.at(6), args.at(7),
                               args.at(8), args.at(9)),
                 row.slot);
    }
}

} // namespace FormCheck
