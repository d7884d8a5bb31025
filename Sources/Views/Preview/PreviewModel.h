#pragma once

#include "Manager/Library/ImageRecords.h"
#include "Platform/Threads/LatestReading.h"
#include "Views/ViewModel.h"

namespace quorvane {

/// The picture that is open over the gallery: stepping through the list, and what can be done with it.
class PreviewModel : public quorvane::ViewModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString previewURL READ previewURL WRITE setPreviewURL NOTIFY previewURLChanged)
    Q_PROPERTY(QStringList list READ list WRITE setList NOTIFY changed)
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged)
    Q_PROPERTY(bool canGoLeft READ canGoLeft NOTIFY changed)
    Q_PROPERTY(bool canGoRight READ canGoRight NOTIFY changed)
    Q_PROPERTY(QString picture READ picture NOTIFY changed)
    Q_PROPERTY(QString thumbnail READ thumbnail NOTIFY changed)
    Q_PROPERTY(QStringList neighbours READ neighbours NOTIFY changed)
    Q_PROPERTY(QString prompt READ prompt NOTIFY changed)
    Q_PROPERTY(bool canUsePrompt READ canUsePrompt NOTIFY changed)
    Q_PROPERTY(bool isFavorite READ isFavorite NOTIFY changed)
    Q_PROPERTY(bool canUpscale READ canUpscale NOTIFY changed)
    Q_PROPERTY(bool hasOriginal READ hasOriginal NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(bool isThere READ isThere NOTIFY changed)
    Q_PROPERTY(bool cameEmpty MEMBER m_cameEmpty WRITE setCameEmpty)
    Q_PROPERTY(bool isUpscaling READ isUpscaling NOTIFY changed)
    Q_PROPERTY(QString progressText READ progressText NOTIFY progressChanged)
    Q_PROPERTY(double progressShare READ progressShare NOTIFY progressChanged)

  public:
    explicit PreviewModel(QObject *parent = nullptr);

    /// Empty while no picture is open.
    [[nodiscard]] const QString &previewURL() const { return m_previewURL; }
    void setPreviewURL(const QString &url);
    [[nodiscard]] bool isOpen() const { return !m_previewURL.isEmpty(); }
    Q_INVOKABLE void close() { setPreviewURL({}); }

    /// What it steps through, without going round at the ends.
    [[nodiscard]] const QStringList &list() const { return m_list; }
    void setList(const QStringList &list);
    [[nodiscard]] bool canGoLeft() const;
    [[nodiscard]] bool canGoRight() const;
    Q_INVOKABLE void goLeft();
    Q_INVOKABLE void goRight();

    /// Addresses for Image; the neighbours' are to be fetched ahead.
    [[nodiscard]] QString picture() const;
    [[nodiscard]] QString thumbnail() const;
    [[nodiscard]] QStringList neighbours() const;

    /// Whether what follows is that of the picture that is open. It is read from the disk and comes a moment later;
    /// until then the last picture's stays, so that nothing flickers, but nothing is done with it.
    [[nodiscard]] bool areRecordsRead() const { return areRecordsOfThis() && !m_reading.isUnderWay(); }
    [[nodiscard]] QString prompt() const { return m_records.facts.prompt.value_or(QString()); }
    [[nodiscard]] bool canUsePrompt() const { return m_records.facts.prompt.has_value(); }
    /// Why the picture is not to be seen, in words; empty for one that is, or of which nothing is known yet. What has a
    /// problem can be neither set nor shown on the whole screen.
    [[nodiscard]] QString problem() const;
    /// Whether the picture's file is there, as far as is known.
    [[nodiscard]] bool isThere() const { return !areRecordsOfThis() || m_records.isThere; }
    /// Whether nothing came of decoding the picture, which its header alone does not always tell.
    void setCameEmpty(bool cameEmpty);
    /// Looks at the disk again.
    Q_INVOKABLE void refresh() { readRecords(); }

    /// Asks for the picture's prompt to be used, and closes.
    Q_INVOKABLE void usePrompt();

    Q_INVOKABLE void setAsWallpaper();

    [[nodiscard]] bool isFavorite() const;
    Q_INVOKABLE void toggleFavorite();

    /// Only for a picture that is not 4K and has no partner, while nothing is being enlarged.
    [[nodiscard]] bool canUpscale() const;
    Q_INVOKABLE void upscale();
    [[nodiscard]] bool isUpscaling() const;
    [[nodiscard]] QString progressText() const;
    [[nodiscard]] double progressShare() const;

    /// Whether the picture was enlarged from another.
    [[nodiscard]] bool hasOriginal() const { return m_records.facts.original.has_value(); }
    Q_INVOKABLE void showOriginal();

  Q_SIGNALS:
    void previewURLChanged();
    void isOpenChanged();
    void changed();
    void progressChanged();
    void promptChosen(const QString &prompt);

  private:
    void attach() override;
    /// What the disk says of one picture.
    struct Records
    {
        QString url;
        ImageRecords::Facts facts;
        int width = 0; ///< In pixels; 0 when the picture cannot be read.
        bool isThere = false;
    };

    [[nodiscard]] static Records recordsOf(const QString &url);
    [[nodiscard]] bool areRecordsOfThis() const { return m_records.url == m_previewURL; }
    void readRecords();
    void followUpscale();

    QString m_previewURL;
    QStringList m_list;
    QString m_lastUpscalingURL;

    bool m_cameEmpty = false;
    Records m_records;
    LatestReading<Records> m_reading;
};

} // namespace quorvane
