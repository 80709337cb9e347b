#pragma once

#include <QChar>
#include <QString>
#include <QStringList>
#include <QUndoCommand>
#include <QVector>

#include <utility>

// Every edit of the configuration record is one of these commands, pushed on
// the window's undo stack. redo() performs the write; the stack's
// indexChanged() then refreshes the page named by `panel`. A command keeps raw
// pointers into the record and owns only its value copies, so the stack must
// be cleared whenever the record is replaced.

// Number of the page that shows a value (position in the window's page table).
enum PageNumber : quint8 {
    PageQuva = 0,
    PageDataPartitioning = 1,
    PageModelParam1 = 2,
    PageModelParam2 = 3,
    PageSelectVariables = 4,
    PageSelectLine = 5,
    PageTargetDefinition = 6,
    PageModalityRecodings = 7,
    PageCreateModel = 8,
    PageApply = 9,
    PageExecute = 10,
    PageCount = 11
};

// Names the page of a command. Used by itself it is the parent of a group:
// undo, redo, id and mergeWith stay those of QUndoCommand, so a group runs its
// children and never merges.
class QUndoCommandPanel : public QUndoCommand
{
public:
    QUndoCommandPanel(QString text, quint8 panel, QUndoCommand *parent = nullptr);
    ~QUndoCommandPanel() override;

    quint8 panel;
};

// Id shared by every mergeable value command; what keeps two commands apart is
// the comparison of their targets in mergeWith.
constexpr int mergeableCommandId = 1;

inline int commandMergeId(bool mergeable)
{
    return mergeable ? mergeableCommandId : -1;
}

// How an old or new value appears in the text of a single-value command.
inline QString commandValueText(double v) { return QStringLiteral("%1").arg(v); }
inline QString commandValueText(int v) { return QString::number(v); }
inline QString commandValueText(bool v) { return QString::number(v ? 1 : 0); }
inline QString commandValueText(char v) { return QString(QChar::fromLatin1(v)); }
inline QString commandValueText(const QString &v) { return v; }

// Appends " - grouped" once, for the commands that keep their given text.
void markGrouped(QUndoCommand *command);

// Sets one field. Its text is "<text>|<old>=><new>" and a merge keeps the
// old value of the first command of the run.
template <typename T>
class UpdateTemplateCommand : public QUndoCommandPanel
{
public:
    UpdateTemplateCommand(T *target, T newValue, QString text, quint8 panel, bool mergeable,
                          QUndoCommand *parent = nullptr)
        : QUndoCommandPanel(QString(), panel, parent), target(target), oldValue(*target),
          newValue(newValue), mergeId(commandMergeId(mergeable))
    {
        setText(QStringLiteral("%1|%2=>%3")
                    .arg(text, commandValueText(oldValue), commandValueText(this->newValue)));
    }

    void undo() override { *target = oldValue; }
    void redo() override { *target = newValue; }
    int id() const override { return mergeId; }

    bool mergeWith(const QUndoCommand *other) override
    {
        // Another instantiation can carry the same id; it never points at
        // the same field, so a failed cast means "another field".
        auto *same = dynamic_cast<const UpdateTemplateCommand<T> *>(other);
        if (!same || other->id() != id() || same->target != target)
            return false;
        newValue = same->newValue;
        const QString head = text().split(QStringLiteral("=>"), Qt::KeepEmptyParts).first();
        setText(QStringLiteral("%1=>%2 - grouped").arg(head, commandValueText(newValue)));
        return true;
    }

    T *target;
    T oldValue;
    T newValue;
    int mergeId;
};

// Sets one field of a container type; keeps the given text.
template <typename T>
class UpdateTemplate2Command : public QUndoCommandPanel
{
public:
    UpdateTemplate2Command(T *target, T newValue, QString text, quint8 panel, bool mergeable,
                           QUndoCommand *parent = nullptr)
        : QUndoCommandPanel(std::move(text), panel, parent), target(target), oldValue(*target),
          newValue(std::move(newValue)), mergeId(commandMergeId(mergeable))
    {
    }

    void undo() override { *target = oldValue; }
    void redo() override { *target = newValue; }
    int id() const override { return mergeId; }

    bool mergeWith(const QUndoCommand *other) override
    {
        auto *same = dynamic_cast<const UpdateTemplate2Command<T> *>(other);
        if (!same || other->id() != id() || same->target != target)
            return false;
        newValue = same->newValue;
        markGrouped(this);
        return true;
    }

    T *target;
    T oldValue;
    T newValue;
    int mergeId;
};

// What the two vector commands share: the fields, their old values, undo,
// and the merge test over the same pointers in the same order.
template <typename T>
class VectorTargetsCommand : public QUndoCommandPanel
{
public:
    void undo() override
    {
        for (int i = targets.size() - 1; i >= 0; --i)
            *targets[i] = oldValues[i];
    }
    int id() const override { return mergeId; }

    QVector<T *> targets;
    QVector<T> oldValues;
    int mergeId;

protected:
    VectorTargetsCommand(QVector<T *> targets, QString text, quint8 panel, bool mergeable,
                         QUndoCommand *parent)
        : QUndoCommandPanel(std::move(text), panel, parent), targets(std::move(targets)),
          mergeId(commandMergeId(mergeable))
    {
        oldValues.reserve(this->targets.size());
        for (T *t : qAsConst(this->targets))
            oldValues.append(*t);
    }

    // `other` as a command of the same class over the same targets, or null.
    template <typename Same>
    const Same *sameTargets(const QUndoCommand *other) const
    {
        auto *same = dynamic_cast<const Same *>(other);
        return same && other->id() == id() && same->targets == targets ? same : nullptr;
    }
};

// Sets several fields, each to its own new value; keeps the given text.
// `targets` and `newValues` have the same length.
template <typename T>
class UpdateTemplateVectorCommand : public VectorTargetsCommand<T>
{
public:
    UpdateTemplateVectorCommand(QVector<T *> targets, QVector<T> newValues, QString text,
                                quint8 panel, bool mergeable, QUndoCommand *parent = nullptr)
        : VectorTargetsCommand<T>(std::move(targets), std::move(text), panel, mergeable, parent),
          newValues(std::move(newValues))
    {
    }

    void redo() override
    {
        for (int i = this->targets.size() - 1; i >= 0; --i)
            *this->targets[i] = newValues[i];
    }

    bool mergeWith(const QUndoCommand *other) override
    {
        auto *same = this->template sameTargets<UpdateTemplateVectorCommand<T>>(other);
        if (!same)
            return false;
        newValues = same->newValues;
        markGrouped(this);
        return true;
    }

    QVector<T> newValues;
};

// Sets several fields to one common new value; keeps the given text.
template <typename T>
class UpdateTemplateVector2Command : public VectorTargetsCommand<T>
{
public:
    UpdateTemplateVector2Command(QVector<T *> targets, T newValue, QString text, quint8 panel,
                                 bool mergeable, QUndoCommand *parent = nullptr)
        : VectorTargetsCommand<T>(std::move(targets), std::move(text), panel, mergeable, parent),
          newValue(newValue)
    {
    }

    void redo() override
    {
        for (int i = this->targets.size() - 1; i >= 0; --i)
            *this->targets[i] = newValue;
    }

    bool mergeWith(const QUndoCommand *other) override
    {
        auto *same = this->template sameTargets<UpdateTemplateVector2Command<T>>(other);
        if (!same)
            return false;
        newValue = same->newValue;
        markGrouped(this);
        return true;
    }

    T newValue;
};
