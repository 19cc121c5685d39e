# Completion of plxclip in PowerShell. The program itself knows its options and the clips of a folder, and is asked
# for them. Your profile ($PROFILE) loads this file with a line such as
#
#     . 'C:\Tools\krt_plx\share\krt_plx\completion\plxclip.ps1'

Register-ArgumentCompleter -Native -CommandName plxclip, plxclip.exe -ScriptBlock {
    param($wordToComplete, $commandAst, $cursorPosition)

    $plain = {
        param($element)
        if ($element -is [System.Management.Automation.Language.StringConstantExpressionAst]) {
            $element.Value
        } else {
            $element.Extent.Text
        }
    }
    $earlier = @($commandAst.CommandElements | Select-Object -Skip 1 |
        Where-Object { $_.Extent.EndOffset -lt $cursorPosition } | ForEach-Object { & $plain $_ })
    $current = $wordToComplete.Trim("'", '"')

    # The program writes UTF-8.
    $encoding = [Console]::OutputEncoding
    try {
        [Console]::OutputEncoding = New-Object System.Text.UTF8Encoding $false
        $answer = @(& plxclip __complete "=$current" $earlier 2>$null)
    } finally {
        [Console]::OutputEncoding = $encoding
    }

    # PowerShell completes files and folders by itself when nothing comes back.
    if ($answer.Count -eq 0 -or $answer[0] -ne 'words') {
        return
    }
    foreach ($line in ($answer | Select-Object -Skip 1)) {
        $word, $about = $line -split "`t", 2
        $text = $word
        if ($word -notmatch '^[\w=.:/\\-]+$') {
            $text = "'" + ($word -replace "'", "''") + "'"
        }
        if (-not $about) {
            $about = $word
        }
        [System.Management.Automation.CompletionResult]::new($text, $word, 'ParameterValue', $about)
    }
}
