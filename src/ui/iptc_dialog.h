#pragma once

#include <QDialog>
#include <string>

#include "attachments/iptc_reader.h"

class QCheckBox;
class QTextEdit;

namespace tessarin {

struct EditorSession;

// frmIPTCImage: the IPTC data of the selected picture in rtfIPTC, one line per dataset with a
// value, its label in dark grey. chkMacintoshAccents shows the values again with the accents
// of a picture captioned on a Macintosh put back; cmdIPTCCaption gives the credit and the
// caption to the picture through the core and closes with Accepted; cmdCancel closes.
class IptcDialog : public QDialog {
    Q_OBJECT
  public:
    IptcDialog(EditorSession& session, std::string selectedKey, IptcData data, QWidget* parent);

  private:
    void Display();
    void CopyToPicture();

    EditorSession& session_;
    std::string selectedKey_;
    IptcData data_;
    QTextEdit* text_;
    QCheckBox* macintoshAccents_;
};

}  // namespace tessarin
