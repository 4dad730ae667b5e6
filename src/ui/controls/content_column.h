// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QVBoxLayout>
#include <QWidget>

namespace tarnwick {

/// A hairline across the column, with room above and below.
class Divider : public QWidget {
    Q_OBJECT

public:
    Divider(int padding, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Widgets one below the other. From one content to the next they live on by their keys, so that
/// hover, focus and open popovers survive.
class ContentColumn : public QWidget {
    Q_OBJECT

protected:
    ContentColumn(const QMargins& margins, int spacing, QWidget* parent);

    /// Begins a new content; end() removes what was not added again.
    void begin();
    void end();

    /// Adds the view of that key, made from `arguments` when it is new, and shows `content` in it.
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
    QHash<QString, QWidget*> previous_; ///< Of the last content, not added again so far.
    QHash<QString, QWidget*> widgets_;
    QList<QWidget*> shown_;
};

/// Brings children of one widget into the order in which they are to be read to the user:
/// assistive technology goes by the order in which they were made.
void setReadingOrder(const QList<QWidget*>& children);

} // namespace tarnwick
