# Completion of kelsim for fish.

complete --command kelsim --long-option channels --require-parameter --description 'Channel records of the logger'
complete --command kelsim --long-option samples --require-parameter --description 'Its records of samples'
complete --command kelsim --long-option fleet --require-parameter --description 'Number of recordings of a fleet, and its folder'
complete --command kelsim --long-option damaged --exclusive --description 'Damaged ones of these'
complete --command kelsim --long-option messages --exclusive --arguments 'sol pvt both' --description 'Messages of the solutions'
complete --command kelsim --long-option laps --exclusive --description 'Closed laps'
complete --command kelsim --long-option rate --exclusive --description 'Solutions and records a second'
complete --command kelsim --long-option seed --exclusive --description 'Seed of the noise and the pace'
complete --command kelsim --long-option version --description 'The version'
complete --command kelsim --short-option h --long-option help --description 'All options'
