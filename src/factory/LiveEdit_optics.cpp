#include "diagnostics/diagnostics.h"
#include "factory/LiveEdit.h"
#include "ui_LiveEdit.h"

void LiveEdit::Precise::set(double value)
{
    exact = qBound(box->minimum(), value, box->maximum());
    box->setValue(exact);
    shown = box->value();
}

double LiveEdit::Precise::get() const
{
    return box->value() == shown ? exact : box->value();
}

void LiveEdit::showOptics(int zoom)
{
    m_ui->sbZoomLevel->setValue(zoom);
    m_ui->lwFocalLengths->setCurrentRow(zoom - 1);
    const QListWidgetItem *item = m_ui->lwFocalLengths->item(zoom - 1);
    const double focalLength = item != nullptr ? item->text().toDouble() : 0.0;
    if (!(focalLength > 0.0)) {
        diagnostics::err(
            QStringLiteral("LiveEdit::setDisplacements_HDMI() no focal length for zoom position %1")
                .arg(zoom));
        return;
    }

    const overlay::FieldOfView visible =
        overlay::fieldOfView({m_ui->dsbRGBSizeX->value(), m_ui->dsbRGBSizeY->value(), focalLength});
    const overlay::FieldOfView infrared = overlay::fieldOfView(
        {m_ui->dsbIRSizeX->value(), m_ui->dsbIRSizeY->value(), m_ui->dsbIRFocalLength->value()});
    m_fieldOfViewH.set(visible.horizontal);
    m_ui->dsbRGBFOVV->setValue(visible.vertical);
    m_ui->dsbIRFOVH->setValue(infrared.horizontal);
    m_ui->dsbIRFOVV->setValue(infrared.vertical);
    if (visible.vertical == 0.0) {
        diagnostics::err(QStringLiteral("LiveEdit::setDisplacements_HDMI() visible field of view "
                                        "is 0: scaled size left unchanged"));
        return;
    }
    const double infraredOverVisible = infrared.vertical / visible.vertical;
    m_ui->dsbIROverRGB->setValue(infraredOverVisible);
    m_ui->sbIRScaledY->setValue(
        overlay::truncated(infraredOverVisible * m_ui->sbRGBResY_HDMI->value()));
    m_ui->sbIRScaledX->setValue(overlay::truncated(m_ui->sbIRScaledY->value() * 1.25));
}

void LiveEdit::setSignalBlockState(bool blocked)
{
    for (QSpinBox *box :
         {m_ui->sbFpgaA, m_ui->sbFpgaB, m_ui->sbFpgaE, m_ui->sbFpgaF, m_ui->sbFpgaG})
        box->blockSignals(blocked);
}

int LiveEdit::getFpgaA()
{
    return overlay::centredA(m_ui->sbRGBResX_HDMI->value(), m_ui->sbIRScaledX->value());
}

void LiveEdit::on_btnCalcABCDEFG_clicked()
{
    const overlay::OpticsPlacement placement = overlay::placementFromOptics(
        {m_ui->sbRGBResX_HDMI->value(), m_ui->sbRGBResY_HDMI->value(), m_ui->sbIRResX->value(),
         m_ui->sbIRScaledX->value(), m_ui->sbIRScaledY->value()});
    const auto showCrop = [](QSpinBox *share, char letter, std::optional<int> crop) {
        if (crop)
            share->setValue(*crop);
        else
            diagnostics::err(QStringLiteral("LiveEdit::on_btnCalcABCDEFG_clicked() the scale is 0: "
                                            "calculated share of %1 left unchanged")
                                 .arg(QLatin1Char(letter)));
    };

    setSignalBlockState(true);
    m_scale.set(placement.scale);
    m_ui->sbFpgaE->setValue(placement.e);
    m_ui->sbFpgaA->setValue(placement.a);
    showCrop(m_ui->sbFpgaF_1, 'F', placement.f);
    if (placement.cropsX)
        m_ui->sbFpgaF->setValue(0);
    m_ui->sbFpgaB->setValue(placement.b);
    showCrop(m_ui->sbFpgaG_1, 'G', placement.g);
    if (placement.cropsY)
        m_ui->sbFpgaG->setValue(0);
    m_ui->sbFpgaC->setValue(0);
    m_ui->sbFpgaC_1->setValue(placement.c);
    m_ui->sbFpgaD->setValue(0);
    m_ui->sbFpgaD_1->setValue(placement.d);
    addDisparityShift();
    setSignalBlockState(false);
    send_hdmi();
    m_ui->btnCalcABCDEFG->setFocus();
}

void LiveEdit::addDisparityShift()
{
    m_ui->sbDisparityShift_A->setValue(0);
    m_ui->sbDisparityShift_F->setValue(0);
    if (!m_ui->cbUseDistance->isChecked())
        return;

    const int resX = m_ui->sbRGBResX_HDMI->value();
    const auto parallax = overlay::parallax(
        {resX, m_fieldOfViewH.get(), m_ui->dsbDistanceToBB->value(), m_ui->dsbDisparity->value()});
    if (!parallax) {
        diagnostics::err(QStringLiteral(
            "LiveEdit::addDisparityShift() field of view or distance is 0: no shift"));
        return;
    }
    m_ui->dsbImageAreaX->setValue(parallax->imageAreaX);
    m_ui->dsbPixelPerCentimeter->setValue(parallax->pixelPerCentimeter);

    if (resX > m_ui->sbIRScaledX->value()) {
        m_ui->sbFpgaA->setValue(getFpgaA() + parallax->shift);
        m_ui->sbDisparityShift_A->setValue(parallax->shift);
        return;
    }
    const double scale = m_scale.get();
    if (scale == 0.0) {
        diagnostics::err(QStringLiteral("LiveEdit::addDisparityShift() the scale is 0: no shift"));
        return;
    }
    const int crop = overlay::truncated(parallax->shift / scale);
    m_ui->sbFpgaF_1->setValue(m_ui->sbFpgaF_1->value() - crop);
    m_ui->sbDisparityShift_F->setValue(crop);
}
