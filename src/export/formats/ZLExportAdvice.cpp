#include "export/formats/ZLExportAdvice.h"

QStringList ZLExportAdvice::lines(std::span<const ZLExportRule> rules, const ZLExportInput& input)
{
    QStringList lines;
    for (const ZLExportRule& rule : rules) {
        const ZLExportFinding finding = rule.check(input);
        if (!finding)
            continue;
        const QString text = QCoreApplication::translate("ZLExportAdvice", rule.text);
        lines += finding->isEmpty() ? text : text.arg(*finding);
    }
    return lines;
}

QStringList ZLExportAdvice::lines(const ZLExporterClass& exporterClass, const ZLExportInput& input)
{
    return exporterClass.create()->advice(input);
}
