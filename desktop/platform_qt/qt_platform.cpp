#include "platform_qt/qt_platform.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLocale>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <memory>

#include "platform/values/fault.h"
#include "platform/values/text.h"
#include "platform_qt/screen_saver_list.h"
#include "platform_qt/x11_windows.h"
#include "text.h"

namespace practice::desktop {
namespace {

constexpr int opened = 42;
constexpr int file_not_found = 2;
constexpr int no_program = 31;

std::unique_ptr<QSettings> open_store(std::string_view application) {
  return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                     QStringLiteral("practice-exam"), to_qt(application));
}

// A file that is no settings file is kept aside, and what can be read of it is used.
void keep_damaged_file(std::string_view application) {
  const auto settings = open_store(application);
  // Sections are read at their first use, and only then found to be none.
  static_cast<void>(settings->allKeys());
  const QString file = settings->fileName();
  const QString aside = file + QStringLiteral(".damaged");
  if (settings->status() == QSettings::NoError || QFileInfo::exists(aside)) return;
  if (settings->status() == QSettings::FormatError) {
    QFile::copy(file, aside);
  } else {
    QFile::rename(file, aside);
  }
}

QString key_of(std::string_view section, std::string_view key) {
  return to_qt(section) + u'/' + to_qt(key);
}

// "X.exe" is "X" here.
QString program_at(std::string_view path) {
  for (const std::string_view ending : {std::string_view(), std::string_view(".exe")}) {
    if (!path.ends_with(ending)) continue;
    const QFileInfo file(system_path(path.substr(0, path.size() - ending.size())));
    if (file.isFile() && file.isExecutable()) return file.absoluteFilePath();
  }
  return {};
}

bool is_program(const QString& path) {
  const QFileInfo file(path);
  return file.isFile() && file.isExecutable();
}

// Plain pages, which our viewer shows too.
bool is_plain_page(const QString& suffix) {
  return suffix == QStringLiteral("txt") || suffix == QStringLiteral("htm") ||
         suffix == QStringLiteral("html");
}

}  // namespace

std::unique_ptr<QSettings> QtSettings::store(std::string_view application) const {
  if (checked_.emplace(application).second) keep_damaged_file(application);
  return open_store(application);
}

std::string QtSettings::get(std::string_view application, std::string_view section,
                            std::string_view key, std::string_view default_value) const {
  return from_qt(store(application)->value(key_of(section, key), to_qt(default_value)).toString());
}

void QtSettings::save(std::string_view application, std::string_view section, std::string_view key,
                      std::string_view value) {
  const auto settings = store(application);
  settings->setValue(key_of(section, key), to_qt(value));
  settings->sync();
  if (settings->status() == QSettings::AccessError) throw Fault::path_access();
}

int QtShell::open(std::string_view target, std::string_view folder, WindowShow) {
  QUrl address(to_qt(target));
  const std::string opening = lower(target.substr(0, 8));
  const bool is_address =
      opening.starts_with("http://") || opening == "https://" || opening.starts_with("mailto:");
  if (!is_address) {
    constexpr std::string_view scheme = "file:///";
    if (target.starts_with(scheme)) target.remove_prefix(scheme.size() - 1);
    std::string path(target);
    if (!folder.empty()) path = std::string(folder) + "/" + path;
    const QFileInfo file(system_path(path));
    if (!file.exists()) return file_not_found;
    const QString place = file.absoluteFilePath();
    const QString suffix = file.suffix().toLower();
    if (suffix == QStringLiteral("chm")) return open_with(viewer, place);
    if (suffix == QStringLiteral("hta")) return open_with(book_viewer, place);
    if (is_plain_page(suffix) && is_program(viewer)) return open_page(place);
    address = QUrl::fromLocalFile(place);
  }
  return QDesktopServices::openUrl(address) ? opened : no_program;
}

int QtShell::open_with(const QString& program, const QString& file) {
  return is_program(program) && QProcess::startDetached(program, {file}) ? opened : no_program;
}

// The desktop's opener tells only when it has tried that there was no program, by its codes 3 and
// 4.
int QtShell::open_page(const QString& file) {
  const QString script =
      QStringLiteral("xdg-open \"$1\" 2>/dev/null; case $? in 3|4|127) exec \"$2\" \"$1\";; esac");
  const QStringList arguments{QStringLiteral("-c"), script, QStringLiteral("sh"), file, viewer};
  return QProcess::startDetached(QStringLiteral("/bin/sh"), arguments) ? opened : no_program;
}

void QtShell::start(std::string_view command_line) {
  for (auto end = command_line.size(); end != std::string_view::npos && end > 0;
       end = command_line.rfind(' ', end - 1)) {
    const QString program = program_at(command_line.substr(0, end));
    if (program.isEmpty()) continue;
    const QStringList arguments = QProcess::splitCommand(to_qt(command_line.substr(end)));
    if (!QProcess::startDetached(program, arguments)) {
      throw Fault::path_access();
    }
    return;
  }
  throw Fault::file_not_found();
}

void QtShell::send_media_command(std::string_view command) {
  constexpr std::string_view play = "play ";
  if (!command.starts_with(play)) return;
  open(trim(command.substr(play.size())), {}, WindowShow::normal);
}

std::string QtShell::class_of(std::string_view extension) const {
  if (extension != ".pdf") return {};
  return is_program(book_viewer) ? "AcroExch.Document" : std::string();
}

// What lies beside the program is found like what lies on the path.
std::string QtShell::find_on_path(std::string_view name) const {
  const QString file = to_qt(name);
  const QString found = QStandardPaths::findExecutable(file);
  if (!found.isEmpty()) return from_qt(found);
  const QStringList beside{QCoreApplication::applicationDirPath()};
  return from_qt(QStandardPaths::findExecutable(file, beside));
}

// XScreenSaver reads its list again when it changes. Where there is none, the saver itself tells
// the student what to do.
void QtShell::make_screen_saver(std::string_view path) {
  const QString settings = QStandardPaths::findExecutable(QStringLiteral("xscreensaver-settings"));
  if (settings.isEmpty()) {
    if (!path.empty()) QProcess::startDetached(to_qt(path), {QStringLiteral("--configure")});
    return;
  }
  if (!path.empty()) {
    QFile old(saver_list);
    const bool is_read = old.open(QIODevice::ReadOnly);
    // A list that is there and can not be read must not be replaced.
    if (!is_read && old.exists()) throw Fault::permission_denied();
    const std::string list = is_read ? old.readAll().toStdString() : std::string();
    QSaveFile file(saver_list);
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly)) throw Fault::path_access();
    file.write(QByteArray::fromStdString(with_our_saver(list, path)));
    if (!file.commit()) throw Fault::path_access();
  }
  QProcess::startDetached(settings, {});
}

void QtShell::close_windows(std::string_view title) { close_windows_titled(to_qt(title)); }

std::string QtInternet::get(std::string_view address) {
  // A version file is one line; an endless answer is cut off.
  constexpr qint64 most_bytes = 64 * 1024;
  QNetworkAccessManager manager;
  QNetworkRequest request(QUrl(to_qt(address)));
  QByteArray body;
  QEventLoop waiting;
  const std::unique_ptr<QNetworkReply> reply(manager.get(request));
  QObject::connect(reply.get(), &QNetworkReply::readyRead, &waiting, [&] {
    body += reply->read(most_bytes - body.size());
    if (body.size() >= most_bytes) waiting.quit();
  });
  QObject::connect(reply.get(), &QNetworkReply::finished, &waiting, &QEventLoop::quit);
  QTimer::singleShot(time_limit, &waiting, &QEventLoop::quit);
  waiting.exec(QEventLoop::ExcludeUserInputEvents);
  const bool is_whole = reply->isFinished() && reply->error() == QNetworkReply::NoError;
  return is_whole ? (body + reply->readAll()).left(most_bytes).toStdString() : std::string();
}

void QtClipboard::clear() { QGuiApplication::clipboard()->clear(); }

void QtClipboard::set_text(std::string_view text) {
  QGuiApplication::clipboard()->setText(to_qt(text));
}

std::int64_t QtClock::seconds() const { return QDateTime::currentSecsSinceEpoch(); }

std::string QtClock::date_and_time() const {
  const QLocale locale = QLocale::system();
  const QDateTime now = QDateTime::currentDateTime();
  // The long time form may name the time zone, which no student looks for.
  QString time_format = locale.timeFormat(QLocale::LongFormat);
  time_format = time_format.remove(u't').trimmed();
  return from_qt(locale.toString(now.date(), QLocale::ShortFormat) + u' ' +
                 locale.toString(now.time(), time_format));
}

std::string QtClock::weekday() const {
  return from_qt(QLocale::system().dayName(QDate::currentDate().dayOfWeek()));
}

void QtRandom::seed_from_clock() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  generator_.seed(static_cast<std::minstd_rand::result_type>(now));
}

float QtRandom::next() {
  // 24 bits, the most that a float holds, so that 1 is never reached.
  constexpr auto range = 1u << 24;
  return static_cast<float>(std::uniform_int_distribution<unsigned>(0, range - 1)(generator_)) /
         static_cast<float>(range);
}

std::string QtMessages::ask(const InputBox& box) {
  QInputDialog window(before_a_box());
  window.setWindowTitle(to_qt(box.title));
  window.setLabelText(to_qt(box.text));
  window.setTextValue(to_qt(box.default_text));
  return window.exec() == QDialog::Accepted ? from_qt(window.textValue()) : std::string();
}

Answer QtMessages::show(const MessageBox& box) {
  QMessageBox window(before_a_box());
  window.setWindowTitle(box.title.empty() ? QCoreApplication::applicationName() : to_qt(box.title));
  window.setTextFormat(Qt::PlainText);
  window.setText(to_qt(box.text));
  switch (box.icon) {
    case Icon::none:
      break;
    case Icon::stop:
      window.setIcon(QMessageBox::Critical);
      break;
    case Icon::question:
      window.setIcon(QMessageBox::Question);
      break;
    case Icon::information:
      window.setIcon(QMessageBox::Information);
      break;
  }
  switch (box.buttons) {
    case Buttons::ok:
      window.setStandardButtons(QMessageBox::Ok);
      break;
    case Buttons::ok_cancel:
      window.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
      window.setEscapeButton(QMessageBox::Cancel);
      break;
    case Buttons::yes_no:
      window.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
      window.setEscapeButton(QMessageBox::No);
      break;
  }
  switch (window.exec()) {
    case QMessageBox::Yes:
      return Answer::yes;
    case QMessageBox::No:
      return Answer::no;
    case QMessageBox::Cancel:
      return Answer::cancel;
    default:
      return Answer::ok;
  }
}

}  // namespace practice::desktop
