// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QVBoxLayout>
#include <QWidget>

namespace tarnwick {

/// A hairline with padding above and below.
class Divider : public QWidget {
    Q_OBJECT

public:
    Divider(int padding, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A column of views that are kept across updates by their keys, so that hover, focus and open
/// popovers survive.
class ContentColumn : public QWidget {
    Q_OBJECT

protected:
    ContentColumn(const QMargins& margins, int spacing, QWidget* parent);

    /// Begins an update; end() removes the views that were not added again.
    void begin();
    void end();

    /// Adds the view with that key, made from `arguments` if it is new, and updates it.
    template <typename View, typename Content, typename... Arguments>
    void add(const QString& key, const Content& content, const Arguments&... arguments) {
        auto* view = static_cast<View*>(previous_.take(key));
        if (view == nullptr)
            view = new View(arguments..., this);
        view->setContent(content);
        append(key, view);
    }

    void addDivider(int padding = 0);

private:
    void append(const QString& key, QWidget* widget);

    QVBoxLayout* column_;
    QHash<QString, QWidget*> previous_; ///< Of the last update, not added again yet.
    QHash<QString, QWidget*> widgets_;
    QList<QWidget*> shown_;
};

/// Orders sibling widgets for assistive technology, which reads them in the order of creation.
void setReadingOrder(const QList<QWidget*>& children);

} // namespace tarnwick
