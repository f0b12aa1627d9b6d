#include "app/Restart.h"

#include <QCoreApplication>
#include <QFile>

#include <unistd.h>
#include <vector>

namespace glimmet {

Restart::Restart(int argc, char *argv[])
    : m_program(QFile::encodeName(QCoreApplication::applicationFilePath()))
{
    for (int number = 0; number < argc; ++number)
        m_arguments.append(argv[number]);
}

void Restart::now() const
{
    std::vector<char *> arguments;
    for (const QByteArray &argument : m_arguments)
        arguments.push_back(const_cast<char *>(argument.constData()));
    arguments.push_back(nullptr);
    execv(m_program.constData(), arguments.data());
}

} // namespace glimmet
