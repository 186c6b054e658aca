#include "forms/filedialog.h"
#include "support/modal.h"

#include <QDir>
#include <QTemporaryDir>

/// The folder that dialogs share for a session. Each test begins where the last one ended.
class TestFileDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        modal::useQtDialogs();
        QVERIFY(m_folder.isValid());
        for (const char *name : {"first", "second", "third", "gone"})
            QVERIFY(QDir(m_folder.path()).mkdir(name));
    }

    void startsInTheFolderOfTheChosenFile()
    {
        accept(folder("first") + "/new.bin", QFileDialog::AnyFile);
        QCOMPARE(startOfNext(), folder("first"));
    }

    void startsInAChosenFolder()
    {
        accept(folder("second"), QFileDialog::Directory);
        QCOMPARE(startOfNext(), folder("second"));
    }

    void startsWhereACancelledOneWas()
    {
        QFileDialog dialog;
        modal::Answer<QFileDialog> answer([this](QFileDialog *shown) {
            shown->setDirectory(folder("third"));
            modal::cancel<QFileDialog>()(shown);
        });
        QVERIFY(filedialog::chosen(dialog).isEmpty());
        QCOMPARE(startOfNext(), folder("third"));
    }

    void proposedNameIsInThatFolder()
    {
        accept(folder("first") + "/new.bin", QFileDialog::AnyFile);
        {
            modal::Answer<QFileDialog> answer([this](QFileDialog *dialog) {
                QCOMPARE(dialog->directory().canonicalPath(), folder("first"));
                QCOMPARE(dialog->findChild<QLineEdit *>("fileNameEdit")->text(),
                         QStringLiteral("NAME.BIN"));
                modal::choose(folder("second") + "/OTHER.BIN")(dialog);
            });
            QCOMPARE(filedialog::saveFileName(nullptr, "Save", "NAME.BIN", ".BIN"),
                     folder("second") + "/OTHER.BIN");
        }
        QCOMPARE(startOfNext(), folder("second"));
    }

    void startsWhereACancelledSaveWas()
    {
        accept(folder("first"), QFileDialog::Directory);
        {
            modal::Answer<QFileDialog> answer([this](QFileDialog *dialog) {
                QCOMPARE(dialog->windowTitle(), QStringLiteral("Save"));
                QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
                QCOMPARE(dialog->nameFilters(), QStringList{".BIN"});
                dialog->setDirectory(folder("third"));
                modal::cancel<QFileDialog>()(dialog);
            });
            QVERIFY(filedialog::saveFileName(nullptr, "Save", "NAME.BIN", ".BIN").isEmpty());
        }
        QCOMPARE(startOfNext(), folder("third"));
    }

    void folderThatIsGoneIsNotUsed()
    {
        accept(folder("gone"), QFileDialog::Directory);
        QVERIFY(QDir(m_folder.path()).rmdir("gone"));
        QVERIFY(QDir(startOfNext()).exists());
    }

private:
    QString folder(const char *name) const
    {
        return QDir(m_folder.path()).canonicalPath() + '/' + name;
    }

    static void accept(const QString &path, QFileDialog::FileMode mode)
    {
        QFileDialog dialog;
        dialog.setFileMode(mode);
        modal::Answer<QFileDialog> answer(modal::choose(path));
        QCOMPARE(filedialog::chosen(dialog), path);
    }

    static QString startOfNext()
    {
        QString start;
        QFileDialog dialog;
        dialog.setDirectory(QDir::rootPath());
        modal::Answer<QFileDialog> answer([&](QFileDialog *shown) {
            start = shown->directory().canonicalPath();
            modal::cancel<QFileDialog>()(shown);
        });
        filedialog::chosen(dialog);
        return start;
    }

    QTemporaryDir m_folder;
};

QTEST_MAIN(TestFileDialog)
#include "tst_filedialog.moc"
